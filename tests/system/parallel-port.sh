#!/bin/bash
# Runs tessarine-script on a Debian kernel in an emulated PC, whose parallel port stands at 378, at 278 or nowhere,
# and compares every byte that reaches the port with what the program shows.
#
#   parallel-port.sh TESSARINE-SCRIPT BENCH-TOOL CACHE WORK
#
# Exit status 77: the emulator or the kernel is not to be had.
set -u
program=$1 tool=$2 cache=$3 work=$4
here=$(cd "$(dirname "$0")" && pwd)
subject="the parallel port was"
. "$here/emulated-pc.sh"

prepare "$program" "$tool"
manyLoads "$here/load.script" > "$root/scripts/speed.script"
runs 0 > "$root/scripts/runs.script"
packUp
boot 378 0x378 &
boot 278 0x278 &
boot none &
wait
listen 378 278 none

# The kernel's driver idles with the control register at 0C, and at 1C once a program has claimed the port: the
# interrupt enable is its own.
silent="Error with Output Port Address 888"

wordsAgree 378 1
endedWith 378 1 0
leftAtRest 378 1 06
wordsAgree 378 2
endedWith 378 2 0
leftAtRest 378 2 1c
says 378 3 "$silent"
says 378 3 "No permission for parallel port 378: /dev/parport0 belongs to the group lp. Type: sudo usermod -aG lp"
goesOn 378 3
wordsAgree 378 4
traceAgrees 378 4
wordsAgree 378 5
says 378 5 "Parallel port 378 is shared with the printer driver lp"
for stage in 6 7; do
  says 378 $stage "$silent"
  says 378 $stage "Parallel port 378 is busy: another program holds it"
  goesOn 378 $stage
done
leftAtRest 378 8 1c
endedWith 378 8 143
callsArePortBytes 378 9
loadTakes 378 10 19 60
boardAgrees 378 12 "$root/scripts/runs.script"
says 378 11 "$silent"
says 378 11 "Raw access to parallel port 378 is forbidden by the kernel"
goesOn 378 11

says 278 1 "$silent"
says 278 1 "Parallel port 378 is missing: the kernel knows 278. Enter that address in Config, Parallel Port"
wordsAgree 278 1
leftAtRest 278 1 1c

missing="Parallel port 378 is missing: nothing answers at this address (it reads FF)"
says none 1 "$missing, and the kernel's driver knows no port. Type: sudo modprobe -a parport_pc ppdev"
says none 2 "$missing, though the kernel's driver was told of it."
for stage in 1 2; do
  says none $stage "$silent"
  goesOn none $stage
done

conclude
