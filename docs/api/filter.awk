# SPDX-License-Identifier: MIT
# What Doxygen reads of a header. Leaves out overriding functions and properties without a comment of
# their own, so that it does not report them as undocumented: Qt documents the former, and the
# functions of a property the latter.

function flush() {
  if (hasComment || declaration !~ /[ )]override;/)
    printf "%s", declaration
  declaration = ""
}

/^ *\/\/\// { flush(); print; hasComment = 1; next }
/^ *Q_PROPERTY/ && !hasComment { flush(); next }
/^ *Q_[A-Z]+/ || /^ *$/ || /^ *\/\/ / || /:$/ || /[{}]/ || /^#/ { flush(); print; hasComment = 0; next }
{ declaration = declaration $0 "\n" }
/;/ { flush(); hasComment = 0 }
END { flush() }
