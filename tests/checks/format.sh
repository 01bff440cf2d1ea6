#!/bin/bash
# format.sh CLANG_FORMAT: every source file is formatted by .clang-format.
shopt -s globstar nullglob
exec "$1" --dry-run -Werror src/**/*.{h,cpp} tests/**/*.{h,cpp}
