# SPDX-License-Identifier: MIT
# Makes the paths in FILE relative to FOLDER: Doxygen writes absolute paths into its tag file.
file(READ "${FILE}" text)
string(REPLACE "${FOLDER}" "" text "${text}")
file(WRITE "${FILE}" "${text}")
