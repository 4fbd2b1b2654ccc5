# SPDX-License-Identifier: MIT
# Takes FOLDER off the paths in FILE: Doxygen writes those of this machine into its tag file.
file(READ "${FILE}" text)
string(REPLACE "${FOLDER}" "" text "${text}")
file(WRITE "${FILE}" "${text}")
