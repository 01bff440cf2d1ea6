# A Debian kernel in an emulated PC, with our programs in it. Sourced by a test that has set `subject`, what it is
# about, and `here`, `cache` and `work`, its folders. CACHE keeps the unpacked kernel from run to run.
. "$here/kernel.sh"
. "$here/evidence.sh"

skip() {
  printf '\n**** SKIPPED: %s NOT tested against a real kernel: %s ****\n\n' "$subject" "$1"
  exit 77
}

# prepare BINARY...: the emulated computer's file system: the programs, what they need, and the scripts.
prepare() {
  local needed binary library why
  for needed in qemu-system-x86_64 busybox strace cpio dpkg-deb xz zstd awk; do
    command -v "$needed" > /dev/null || skip "$needed is not installed"
  done
  [ "$(uname -m)" = x86_64 ] || skip "the emulated PC runs x86-64 programs only"
  why=$(fetchKernel "$cache") || skip "the package of a Debian kernel cannot be had: $why"
  rm -rf "$work"
  root=$work/root
  version=$(basename "$cache"/modules/*)
  mkdir -p "$root"/{bin,proc,sys,dev,etc,tmp,modules,scripts}
  ln -s bin "$root/sbin"
  cp "$(command -v busybox)" "$root/bin/busybox"
  install -m 755 "$here/guest-init" "$root/init"
  cp "$here"/*.script "$root/scripts"
  cp -r "$cache"/modules/* "$root/modules"
  printf 'root:x:0:0:root:/:/bin/sh\nann:x:1000:1000:ann:/:/bin/sh\nbob:x:1001:1001:bob:/:/bin/sh\n' > "$root/etc/passwd"
  printf 'root:x:0:\nlp:x:7:bob\ngpio:x:8:bob\nann:x:1000:\nbob:x:1001:\n' > "$root/etc/group"
  for binary in "$@" "$(command -v strace)"; do
    strip -o "$root/bin/$(basename "$binary")" "$binary"
    for library in $(ldd "$binary" | grep -o '/[^ ]*'); do
      mkdir -p "$root/$(dirname "$library")"
      cp -Lu "$library" "$root/$library"
    done
  done
}

# runs OPTION: load, hop and sweep of three chips, on the way out of that place on the first screen.
runs() {
  local chip
  printf '%s\n' "click IOOption($1)" 'click ContinueCommand'
  for chip in ADF4113 ADF4153 LMX2326; do
    printf '%s\n' "pick $chip" 'click Gen1' 'set RefText 10' 'set CompText 200' 'set PrescalarText 8/9' \
      'set VCOText 900.2' 'click AllCommand' 'show LDLabel' 'click AllCommand' 'show LDLabel' 'click Hop1' \
      'set VcoText1 900' 'set VcoText2 901' 'set HopText 2' 'set DelayText 1' 'click StartHop' 'click Sweep1' \
      'set StartText1 1000' 'set StopText1 1000.4' 'set StepText1 200' 'click AutoOption1' 'set DelaySweepText1 5' \
      'click StartSweepCommand'
  done
}

# A script that sends what SCRIPT sends twenty times.
manyLoads() { awk '{ print } /AllCommand/ && !n { for (; n < 19; n++) print }' "$1"; }

packUp() {
  mkdir -p "$work/lib" && ln -s "$(realpath "$root/modules")" "$work/lib/modules"
  busybox depmod -b "$work" "$version" || exit 1
  (cd "$root" && find . | cpio -o -H newc --quiet) > "$work/initrd" || exit 1
}

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

listen() { # BENCH...
  local bench
  for bench; do
    grep -q '^UP.*' "$work/$bench.console" ||
      { echo "the $bench bench did not start:"; cat "$work/$bench.log"; exit 1; }
    tr -d '\r' < "$work/$bench.console" > "$work/$bench.told"
  done
}
