# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034 # what the callers use
# What the scripts of this folder share. For sourcing; the caller ends with "exit $((failures > 0))".

failures=0

check() { # NAME EXPECTED ACTUAL
  [ "$3" = "$2" ] && echo "PASS: $1" && return
  echo "FAIL: $1"; echo "  wanted: $2"; echo "  got:    $3"
  failures=$((failures + 1))
}

# quietly COMMAND...: its talk is only of interest when it failed, which ends the test.
quietly() {
  local talk
  talk=$("$@" 2>&1) && return 0
  echo "FAIL: $*"; echo "$talk"
  exit 1
}

# What consumers/showsheet.cpp writes when all is well.
shown='text: Delete the folder Tea?
button: OK
themed: yes
answer: yes
warnings: 0'
