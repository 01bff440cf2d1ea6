#!/bin/bash
# toolkit-free.sh CORE SCRIPT: the core asks no library but the language's own for anything, and the program
# that runs scripts starts without a toolkit.
set -u
core=$1 script=$2
failures=0

foreign=$(nm -C --undefined-only "$core" | grep -E ' (Q[A-Z][A-Za-z]*::|qt_|ftdi_|libusb_)' | sort -u)
if [[ -n $foreign ]]; then
  echo "The core needs more than the standard library:"
  echo "$foreign"
  failures=1
fi

needed=$(readelf -d "$script" | grep NEEDED)
if ! grep -q libstdc++ <<<"$needed" || grep -qi 'qt\|x11\|gtk' <<<"$needed"; then
  echo "The script program needs these libraries:"
  echo "$needed"
  failures=1
fi
exit $failures
