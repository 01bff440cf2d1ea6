#!/bin/bash
# Runs a program on an X server of its own with a window manager, as it is on a desk.
#   on-a-screen.sh PROGRAM [ARGUMENT...]
set -uo pipefail
if [[ -z ${TESSARINE_SCREEN:-} ]]; then
  TESSARINE_SCREEN=1 exec xvfb-run -a -s '-screen 0 1800x1300x24' "$0" "$@"
fi
home=$(mktemp -d)
export HOME=$home XDG_RUNTIME_DIR=$home XDG_CONFIG_HOME=$home
chmod 700 "$home"
# Options are parted by blanks, commas and colons, which the path of the sources may have.
cp "$(dirname "${BASH_SOURCE[0]}")/leaks.supp" "$home"
export LSAN_OPTIONS=suppressions=$home/leaks.supp:print_suppressions=0
openbox --startup "touch $home/managed" >/dev/null 2>&1 &
manager=$!
for _ in {1..100}; do
  [[ -e $home/managed ]] && break
  sleep 0.05
done
"$@"
status=$?
kill "$manager"
wait "$manager"
rm -rf "$home"
exit "$status"
