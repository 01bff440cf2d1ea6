#!/bin/bash
# Runs tessarine-script on a Debian kernel in an emulated PC, on the GPIO lines of a kernel module of ours, whose levels
# land on the PC's parallel port, and compares them with what the virtual board latches and the program shows.
#
#   gpio-lines.sh TESSARINE-SCRIPT BENCH-TOOL CACHE WORK
#
# Exit status 77: the emulator, the kernel or its headers are not to be had.
set -u
program=$1 cache=$3 work=$4
here=$(cd "$(dirname "$0")" && pwd)
subject="GPIO lines were"
. "$here/emulated-pc.sh"

prepare "$program" "$2"
why=$(buildModule "$cache" "$here/gpio-lines.c" "$work/gpio-lines") || skip "no kernel module can be built: $why"
cp "$work/gpio-lines.ko" "$root/"
runs 0 > "$root/scripts/runs.script"
runs 1 > "$root/scripts/usb-runs.script"
sed 's/IOOption(0)/IOOption(1)/' "$here/load.script" > "$root/scripts/usb.script"
for name in load usb; do manyLoads "$root/scripts/$name.script" > "$root/scripts/$name-speed.script"; done
printf 'lock GPIO23\nclock GPIO17 # %s\n\ndata GPIO27\nload GPIO22\npin9 GPIO8\n' 'as on the header' > "$root/scripts/wires"
packUp
boot gpio 0x378
listen gpio

# Which lines are inputs, one value after the other, and the levels at the end.
directions() { # VALUES
  local seen
  seen=$(bytes "$1" "$2" | awk '$1 == 6 { printf "%s ", $2 } $1 == 0 { last = $2 } END { print last }')
  [ "$seen" = "$3 00" ]
  verdict $? "$1, stage $2: inputs are $3, levels at the end 00: $seen"
}

boardAgrees gpio 1 "$root/scripts/runs.script"
boardAgrees gpio 2 "$root/scripts/usb-runs.script"
for stage in 1 2; do directions gpio $stage "fd fc f8 fc fe ff"; done
says gpio 2 $'LDLabel\tLock Detect On'
says gpio 2 $'LDLabel\tLock Detect Off'
says gpio 3 "No permission for the GPIO lines of /dev/gpiochip0."
goesOn gpio 3
wordsAgree gpio 4
directions gpio 4 "fd fc f8 78 7c 7e 7f ff"
says gpio 5 'GPIO line GPIO27 (data) is busy: "tessarine" holds it.'
endedWith gpio 6 143
directions gpio 6 "fd fc f8 fc fe ff"
loadTakes gpio 7 19 60
loadTakes gpio 8 19 60
says gpio 9 "The GPIO lines of /dev/gpiochip0 are slow: a change takes "
wordsAgree gpio 9
says gpio 10 "GPIO line GPIO17 (clock) is ambiguous: /dev/gpiochip0 has it twice."
says gpio 11 "GPIO lines are missing: this computer has no GPIO chip."
conclude
