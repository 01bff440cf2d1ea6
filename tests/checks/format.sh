#!/bin/bash
# format.sh: every source file is formatted by .clang-format. Each version of clang-format has its own mind.
shopt -s globstar nullglob
version=14
for program in "clang-format-$version" clang-format; do
  if [[ $("$program" --version 2>/dev/null) == *" version $version."* ]]; then
    exec "$program" --dry-run -Werror src/**/*.{h,cpp} tests/**/*.{h,cpp}
  fi
done
echo "**** SKIPPED: the format was NOT checked: there is no clang-format $version ****"
exit 77
