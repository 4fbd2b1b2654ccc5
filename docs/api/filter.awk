# SPDX-License-Identifier: MIT
# What Doxygen reads of a header. Two things without a text of their own get one: properties, whose
# functions have theirs, and overriding functions, since their base classes, which are Qt's, are not
# read.

function flush() {
  if (declaration ~ /[ )]override;/ && !isTold)
    printf "%s/// As in the base class, with what the class says.\n", indent
  printf "%s", declaration
  declaration = ""
}

/^ *\/\/\// { flush(); print; isTold = 1; next }
/^ *Q_[A-Z]+/ {
  flush()
  if (/Q_PROPERTY/ && !isTold)
    print "/// As its functions say."
  print
  isTold = 0
  next
}
/^ *$/ || /^ *\/\/ / || /:$/ || /[{}]/ || /^#/ { flush(); print; isTold = 0; next }
declaration == "" { match($0, /^ */); indent = substr($0, 1, RLENGTH) }
{ declaration = declaration $0 "\n" }
/;/ { flush(); isTold = 0 }
END { flush() }
