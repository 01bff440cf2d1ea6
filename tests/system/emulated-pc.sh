#!/bin/bash
# Runs tessarine-script on a Debian kernel in an emulated PC, through the stages of a bench, and judges what the computer
# said and each byte that reached its parallel port.
#
#   emulated-pc.sh BENCH TESSARINE-SCRIPT USB-MODULE CACHE WORK
#
# BENCH.stages says what is done there and what is wanted; CACHE keeps the kernel from run to run. Exit status 77: the
# emulator, the kernel or its headers are not to be had.
set -u
bench=$1 program=$2 module=$3 cache=$4 work=$5 root=$5/root
here=$(cd "$(dirname "$0")" && pwd)
. "$here/kernel.sh"

skip() {
  printf '\n**** SKIPPED: %s NOT tested against a real kernel: %s ****\n\n' "$bench" "$1"
  exit 77
}

# What an example sends, on any way out.
example() { grep -vE '^(#|$|at |show|board|latches|click (IOOption|ContinueCommand))' "$here/../../examples/$1.script"; }

scripts() { # WAY NUMBER: on the way out of that place on the first screen
  local place=$root/scripts/$1 name load again='click AllCommand'
  mkdir -p "$place"
  load=$(example adf4113-900mhz)
  echo "$load" > "$place/load"
  printf '%s\n' "$load" 'wait 4000' "$again" > "$place/again"
  (echo "$load"; yes "$again" | head -n 19) > "$place/many-loads"
  example adf4113-hop | sed 's/^set HopText.*/set HopText 1000/' > "$place/hopping"
  for name in hop sweep; do example adf4113-$name; done > "$place/runs"
  (echo 'click Gen1'; example adf4153-fractional; example lmx2326-900mhz) >> "$place/runs"
  printf '%s\n' 'show LDLabel' "$again" 'show LDLabel' >> "$place/runs"
  echo 'wait 9000' > "$place/holding"
  # A port is tried before the working screen opens, a module by the first command.
  if [ "$1" = USB ]; then echo "$load"; else echo 'pick ADF4113'; fi > "$place/refused"
  for name in "$place"/*; do
    printf '%s\n' "click IOOption($2)" 'click ContinueCommand' "$(cat "$name")" > "$name"
  done
}

for needed in qemu-system-x86_64 busybox strace cpio dpkg-deb awk; do
  command -v $needed > /dev/null || skip "$needed is not installed"
done
[ "$(uname -m)" = x86_64 ] || skip "the emulated PC runs x86-64 programs only"
why=$(fetchKernel "$cache") || skip "the package of a Debian kernel cannot be had: $why"

# The emulated computer's file system: the programs, what they need, and the scripts.
rm -rf "$work"
mkdir -p "$root"/{bin,lib,proc,sys,dev,etc,tmp,modules}
ln -s bin "$root/sbin"
cp "$(command -v busybox)" "$root/bin/busybox"
install -m 755 "$here/guest-init" "$root/init"
cp "$here/$bench.stages" "$root/stages"
cp -r "$cache"/modules/* "$root/modules"
scripts LPT1 0
scripts USB 1
printf 'root:x:0:0:root:/:/bin/sh\nann:x:1000:1000:ann:/:/bin/sh\nbob:x:1001:1001:bob:/:/bin/sh\n' > "$root/etc/passwd"
printf 'root:x:0:\nlp:x:7:bob\nann:x:1000:\nbob:x:1001:\n' > "$root/etc/group"
for binary in "$program" "$module" "$(command -v strace)"; do
  strip -o "$root/bin/$(basename "$binary")" "$binary"
  for library in $(ldd "$binary" | grep -o '/[^ ]*'); do
    mkdir -p "$root/$(dirname "$library")"
    cp -Lu "$library" "$root/$library"
  done
done
if [ -e "$here/$bench.c" ]; then
  why=$(buildModule "$cache" "$here/$bench.c" "$root/$bench") || skip "no kernel module can be built: $why"
fi
mkdir "$work/lib" && ln -s "$(realpath "$root/modules")" "$work/lib/modules"
busybox depmod -b "$work" "$(basename "$cache"/modules/*)" || exit 1
(cd "$root" && find . | cpio -o -H newc --quiet) > "$work/initrd" || exit 1

# Its time goes by the instructions it carries out, 500 million a second, and leaps over idle times: the waits cost
# nothing here, and its timing does not depend on this machine.
timeout 400 qemu-system-x86_64 -machine pc,hpet=off -accel tcg -icount shift=1,sleep=off -m 128 -nodefaults \
  -no-user-config -display none -no-reboot -kernel "$cache/vmlinuz" -initrd "$work/initrd" \
  -chardev "file,id=console,path=$work/console" -serial chardev:console -chardev null,id=lines \
  -device isa-parallel,chardev=lines,iobase=0x378,irq=7 -trace parallel_ioport_write -D "$work/written" \
  -append 'console=ttyS0 quiet loglevel=0 nokaslr nosmp tsc=reliable cryptomgr.notests panic=-1' \
  < /dev/null > "$work/log" 2>&1
tr -d '\r' < "$work/console" | tr '\t' ' ' > "$work/told"
[ "$(grep -c '^UP' "$work/told")" = 2 ] || { echo "the computer did not come to its end:"; cat "$work/log" "$work/told"; exit 1; }

# What was said in the stage.
told() { awk -v stage="$stage" '$1 == "STAGE" { on = $2 == stage; next } on && $1 != "WANT"' "$work/told"; }

# The bytes of the stage, "REGISTER VALUE" each.
bytes() {
  sed -n 's/^parallel_ioport_write .* addr 0x0*\([0-7]\) val 0x\([0-9a-f]*\)$/\1 \2/p' "$work/written" |
    awk -v stage="$(printf %02x "$stage")" '$1 == 7 { on = $2 == stage; next } on'
}

# The words that a chip latches from lines "0 VALUE", one a load pulse.
latched() { # CLOCK DATA LOAD, by their masks
  awk -v c="$1" -v d="$2" -v l="$3" '
    $1 == 0 {
      low = index("0123456789abcdef", tolower(substr($2, length($2)))) - 1
      clock = int(low / c) % 2; data = int(low / d) % 2; load = int(low / l) % 2
      if (clock && !clockBefore) bits = bits data
      if (load && !loadBefore) { print "latch", bits; bits = "" }
      clockBefore = clock; loadBefore = load
    }'
}

# From the bytes of the port or from the pins of a USB module, step by step.
pulses() {
  if told | grep -q '^USB . levels'; then
    told | sed -n 's/^USB . levels //p' | fold -w 2 | sed 's/^/0 /' | latched 8 4 2
  else
    bytes | latched 1 2 4
  fi
}

# Each check fails by its result, and what it prints is told then alone.

# Each load pulse latches what the virtual board latches from the same script.
words() { # WAY/SCRIPT [PULSES: the last ones alone]
  local wanted
  wanted=$( (cat "$root/scripts/$1"; echo latches) | "$program" | grep '^latch' | tr '\t' ' ' | tail -n "${2:-+1}")
  [ "$(wc -l <<< "$wanted")" -ge 3 ] && diff <(echo "$wanted") <(pulses | tail -n "${2:-+1}")
}

# The last bytes that the register got.
bytesOf() { # REGISTER VALUE...
  local seen
  seen=$(bytes | awk -v register="$1" '$1 == register { printf " %s", $2 }')
  echo "$seen"
  shift
  [[ $seen == *" $*" ]]
}

# A text, or several lines " | " one directly behind the other.
says() { # TEXT
  told
  [[ $(told) == *"${1// | /$'\n'}"* ]]
}

# A load by the emulated computer's own clock, calculation and captions included: what a run with 19 more loads takes
# longer than a run with one.
loadTakes() { # WAITS-IN-MILLISECONDS, which it may exceed by a 20th
  told | awk -v waits="$1" '$1 == "CLOCK" { time[++n] = $2 }
    END { took = (time[3] - 2 * time[2] + time[1]) / 19; print took " ms"; exit !(took >= waits && took <= 1.05 * waits) }'
}

failures=0
while read -r word check text; do
  [ "$word" = STAGE ] && stage=$check && echo "$stage: $text"
  [ "$word" = WANT ] || continue
  words=("$text")
  [ "$check" = says ] || read -ra words <<< "$text"
  if seen=$("$check" "${words[@]}"); then
    echo "  ok    $check $text"
  else
    printf '  WRONG %s\n%s\n' "$check $text" "$seen"
    failures=$((failures + 1))
  fi
done < "$work/told"
echo "$(grep -c ^WANT "$work/told") checks, $failures wrong ($work/told); $(grep ^UP "$work/told" | tr '\n' ' ')"
[ $failures = 0 ]
