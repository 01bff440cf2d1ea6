#!/bin/bash
# toolkit-free.sh SCRIPT: the program that runs scripts starts without a toolkit, and so does all that it is made of.
needed=$(readelf -d "$1" | grep NEEDED)
if ! grep -q libstdc++ <<<"$needed" || grep -qi 'qt\|x11\|gtk' <<<"$needed"; then
  echo "The script program needs these libraries: $needed"
  exit 1
fi
