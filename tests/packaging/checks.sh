# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034 # what the callers use
# Functions for the scripts in this folder. To be sourced; the caller ends with "exit $((failures > 0))".

failures=0

check() { # NAME EXPECTED ACTUAL
  [ "$3" = "$2" ] && echo "PASS: $1" && return
  echo "FAIL: $1"; echo "  wanted: $2"; echo "  got:    $3"
  failures=$((failures + 1))
}

# quietly COMMAND...: prints the command's output only if it fails, which ends the test.
quietly() {
  local talk
  talk=$("$@" 2>&1) && return 0
  echo "FAIL: $*"; echo "$talk"
  exit 1
}

# The output of consumers/showsheet.cpp on success.
shown='text: Delete the folder Tea?
button: OK
themed: yes
answer: yes
warnings: 0'
