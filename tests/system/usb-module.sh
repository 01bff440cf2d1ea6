#!/bin/bash
# Runs tessarine-script on a Debian kernel in an emulated PC, against USB modules that exist in software alone, and
# compares the levels of their pins with what the virtual board latches and the program shows.
#
#   usb-module.sh TESSARINE-SCRIPT BENCH-TOOL USB-MODULE CACHE WORK
#
# Exit status 77: the emulator or the kernel is not to be had.
set -u
program=$1 cache=$4 work=$5
here=$(cd "$(dirname "$0")" && pwd)
subject="USB modules were"
. "$here/emulated-pc.sh"

prepare "$program" "$2" "$3"
usb() { sed 's/IOOption(0)/IOOption(1)/' "$here/$1.script"; }
runs 1 > "$root/scripts/runs.script"
usb load > "$root/scripts/usb.script"
usb hopping > "$root/scripts/usb-hopping.script"
usb holding > "$root/scripts/usb-holding.script"
(usb load; echo 'wait 4000'; usb load | tail -n 2) > "$root/scripts/usb-again.script"
manyLoads "$root/scripts/usb.script" > "$root/scripts/speed.script"
packUp
boot usb
listen usb

single=('USB A levels 00' 'USB A outputs 0D mode 1' 'USB A outputs 00 mode 1')
two=('USB A outputs 00 mode 1' 'USB B levels 00' 'USB B outputs FD mode 1' 'USB B outputs 00 mode 1')

boardAgrees usb 1 "$root/scripts/runs.script"
inOrder usb 1 'USB A outputs 0F mode 1' 'USB A levels 00'
boardAgrees usb 2 "$root/scripts/runs.script"
inOrder usb 2 'USB B outputs FF mode 1' 'USB B levels 00' 'USB A outputs 00 mode 1'
for stage in 1 2; do
  pins=([1]="F0 70" [2]="FF F7")
  inOrder usb $stage "USB A pins ${pins[stage]% *}" $'LDLabel\tLock Detect On'
  inOrder usb $stage "USB A pins ${pins[stage]#* }" $'LDLabel\tLock Detect Off'
done
inOrder usb 1 "${single[@]}" 'EXIT 0'
inOrder usb 2 "${two[@]}" 'EXIT 0'
says usb 3 "No permission for the USB module /dev/bus/usb/001/00"
wordsAgree usb 4
[ "$(told usb 4 | grep -c '^USB B levels .\{76\}')" = 3 ]
verdict $? "usb, stage 4: three words are three transfers"
says usb 5 "/sys/bus/usb/drivers/ftdi_sio/1-1:1.1"
wordsAgree usb 5
says usb 6 "Channel B of the USB module is busy: another program holds it. To see which, type: sudo fuser -v /dev/bus/usb/001/00"
inOrder usb 7 "${two[@]}"
endedWith usb 7 143
says usb 8 "The USB module is missing since this command (usb bulk write failed)."
wordsAgree usb 8 3
wordsAgree usb 9
loadTakes usb 10 19 60
says usb 11 "2 USB modules are plugged in: the first in bus order is used, the FT232H at 1-1."
wordsAgree usb 11
conclude
