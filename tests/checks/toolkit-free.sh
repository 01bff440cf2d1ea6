#!/bin/bash
# toolkit-free.sh CORE SCRIPT: the core asks no library but the language's own for anything, and the program
# that runs scripts starts without a toolkit.
set -u

if nm -C --undefined-only "$1" | grep -E ' (Q[A-Z][A-Za-z]*::|qt_|ftdi_|libusb_)'; then
  echo "The core needs more than the standard library"
  exit 1
fi
needed=$(readelf -d "$2" | grep NEEDED)
if ! grep -q libstdc++ <<<"$needed" || grep -qi 'qt\|x11\|gtk' <<<"$needed"; then
  echo "The script program needs these libraries: $needed"
  exit 1
fi
