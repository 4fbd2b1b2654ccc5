# SPDX-License-Identifier: MIT
# Writes the ```cpp blocks of all documentation pages into one C++ file, so that they are compiled: a
# block with includes at file scope, any other as the body of a member function of a class derived from
# MainWindow. Blocks that neither wait for a user nor change the state of the process are listed in
# docSnippets and run by the test.
#
#     awk -f extract.awk PAGE... > snippets.cpp

BEGIN {
  waits = "exec(AndDelete)?\\(|(Msg|CustomBtn)\\(|popup\\(|startDetached|HelpWindow|BrowserWindow"
  shares = "initialize\\(|installDefaultTheme\\(|addCatalogue\\(|installStrings|setFilterRules|setPalette|applyDefaultThemeStyle|qApp->|setDefaultThemeMode|changeStrings|reload\\("
}

FNR == 1 {
  isCode = 0
  page = FILENAME
  sub(/.*\//, "", page)
}

/^```cpp$/ {
  isCode = 1
  isFile = 0
  body = ""
  line = FNR
  place = sprintf("#line %d \"%s\"\n", FNR + 1, FILENAME)
  next
}

/^```$/ && isCode {
  isCode = 0
  ++count
  if (isFile)
    files = files "#define main page_main_" count "\n" place body "#undef main\n"
  else {
    bodies = bodies "struct Page" count " : MainWindow\n{\n    void run();\n};\n" \
      "void Page" count "::run()\n{\n" place body "}\n"
    if (body !~ waits && body !~ shares)
      list = list sprintf("    {\"%s:%d\", [] { Page%d().run(); }},\n", page, line, count)
  }
  next
}

isCode {
  if ($0 ~ /^#include/)
    isFile = 1
  body = body $0 "\n"
}

END {
  printf "%s#include \"docs/snippets.h\"\n%s", files, bodies
  printf "const std::vector<DocSnippet> docSnippets {\n%s};\n", list
}
