#!/bin/bash
# Runs tessarine-script on a Debian kernel in an emulated PC, whose parallel port stands at 378, at 278 or nowhere,
# and compares every byte that reaches the port with what the program shows.
#
#   parallel-port.sh TESSARINE-SCRIPT BENCH-TOOL CACHE WORK
#
# CACHE keeps the unpacked kernel from run to run. Exit status 77: the emulator or the kernel is not to be had.
set -u
program=$1 tool=$2 cache=$3 work=$4
here=$(cd "$(dirname "$0")" && pwd)
. "$here/kernel.sh"
. "$here/evidence.sh"

skip() {
  printf '\n**** SKIPPED: the parallel port was NOT tested against a real kernel: %s ****\n\n' "$1"
  exit 77
}

for needed in qemu-system-x86_64 busybox strace cpio dpkg-deb xz zstd awk; do
  command -v "$needed" > /dev/null || skip "$needed is not installed"
done
[ "$(uname -m)" = x86_64 ] || skip "the emulated PC runs x86-64 programs only"
why=$(fetchKernel "$cache") || skip "the package of a Debian kernel cannot be had: $why"

# The emulated computer's file system: the program, what it needs, and the scripts.
rm -rf "$work"
root=$work/root
mkdir -p "$root"/{bin,proc,sys,dev,etc,tmp,modules,scripts}
ln -s bin "$root/sbin"
cp "$(command -v busybox)" "$root/bin/busybox"
install -m 755 "$here/guest-init" "$root/init"
cp "$here"/*.script "$root/scripts"
awk '{ print } /AllCommand/ { for (n = 0; n < 19; n++) print }' "$here/load.script" > "$root/scripts/speed.script"
cp -r "$cache"/modules/* "$root/modules"
printf 'root:x:0:0:root:/:/bin/sh\nann:x:1000:1000:ann:/:/bin/sh\nbob:x:1001:1001:bob:/:/bin/sh\n' > "$root/etc/passwd"
printf 'root:x:0:\nlp:x:7:bob\nann:x:1000:\nbob:x:1001:\n' > "$root/etc/group"
for binary in "$program" "$tool" "$(command -v strace)"; do
  strip -o "$root/bin/$(basename "$binary")" "$binary"
  for library in $(ldd "$binary" | grep -o '/[^ ]*'); do
    mkdir -p "$root/$(dirname "$library")"
    cp -Lu "$library" "$root/$library"
  done
done
version=$(basename "$cache"/modules/*)
mkdir -p "$work/lib" && ln -s "$(realpath "$root/modules")" "$work/lib/modules"
busybox depmod -b "$work" "$version" || exit 1
(cd "$root" && find . | cpio -o -H newc --quiet) > "$work/initrd" || exit 1

# boot BENCH [PORT-ADDRESS]: what the computer prints goes to BENCH.console, each byte of the port to BENCH.bytes.
# Its time goes by the instructions it carries out, 500 million a second, and leaps over idle times: the waits cost
# nothing here, and its timing does not depend on this machine.
boot() {
  local port=()
  [ -n "${2:-}" ] && port=(-chardev null,id=lines -device "isa-parallel,chardev=lines,iobase=$2,irq=7")
  timeout 400 qemu-system-x86_64 -machine pc,hpet=off -accel tcg -icount shift=1,sleep=off -m 128 -nodefaults \
    -no-user-config -display none -no-reboot -kernel "$cache/vmlinux" -initrd "$work/initrd" \
    -chardev "file,id=console,path=$work/$1.console" -serial chardev:console "${port[@]}" \
    -append "console=ttyS0 quiet loglevel=0 nokaslr nosmp tsc=reliable cryptomgr.notests panic=-1 bench=$1" \
    -trace parallel_ioport_write -D "$work/$1.bytes" < /dev/null > "$work/$1.log" 2>&1
}

boot 378 0x378 &
boot 278 0x278 &
boot none &
wait
for bench in 378 278 none; do
  grep -q '^UP.*' "$work/$bench.console" || { echo "the $bench bench did not start:"; cat "$work/$bench.log"; exit 1; }
  tr -d '\r' < "$work/$bench.console" > "$work/$bench.told"
done

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
