#!/bin/bash
# kernel.sh FOLDER: puts a Debian kernel into FOLDER, and nothing if it is there already: vmlinuz, and modules/, the tree
# under /lib/modules. Also sourced, for fetchKernel, which returns 1 when the package cannot be had; why stands on standard
# output.

# Below drivers/ of the kernel's modules.
kernelModules=(parport/parport parport/parport_pc char/ppdev char/lp usb/common/usb-common usb/core/usbcore
  usb/usbip/usbip-core usb/usbip/vhci-hcd usb/serial/usbserial usb/serial/ftdi_sio)

# dependsOn PACKAGE KINDS: the packages of linux-KIND that it depends on.
dependsOn() { apt-cache depends "$1" 2> /dev/null | grep -oE "Depends: linux-($2)-.*" | cut -d' ' -f2; }

fetchKernel() {
  local cache=$1 package parts part found work module patterns=()
  [ -e "$cache/vmlinuz" ] && [ "$(cat "$cache/ready" 2> /dev/null)" = "${kernelModules[*]}" ] && return 0
  rm -rf "$cache"
  work=$cache/unpack
  mkdir -p "$work" || return 1
  package=$(dependsOn linux-image-amd64 image | head -n 1)
  if [ -z "$package" ] && [ "$(id -u)" = 0 ]; then
    apt-get update -q > /dev/null 2>&1
    package=$(dependsOn linux-image-amd64 image | head -n 1)
  fi
  [ -n "$package" ] || { echo "no package linux-image-amd64 is listed (apt-get update?)"; return 1; }
  # Newer kernels come in several packages.
  parts=$(dependsOn "$package" 'binary|modules')
  (cd "$work" && apt-get download -q "$package" $parts > apt.log 2>&1) || { tail -n 3 "$work/apt.log"; return 1; }
  # Where /lib is a link, packages have their modules below /usr.
  for module in "${kernelModules[@]}"; do patterns+=("./*lib/modules/*/kernel/drivers/$module.ko*"); done
  for part in "$work"/*.deb; do
    dpkg-deb --fsys-tarfile "$part" |
      tar -x -C "$work" --wildcards './boot/vmlinuz-*' './*lib/modules/*/vmlinuz' "${patterns[@]}" 2> /dev/null
  done
  found=$(find "$work" -name '*.ko*' | wc -l)
  [ "$found" = "${#kernelModules[@]}" ] || { echo "$package has $found of ${#kernelModules[@]} modules"; return 1; }
  find "$work" -name 'vmlinuz*' -exec mv {} "$cache/vmlinuz" \;
  mv "$work"/lib/modules "$work"/usr/lib/modules "$cache/" 2> /dev/null
  find "$cache/modules" -name '*.xz' -exec xz -d {} +
  rm -rf "$work"
  echo "${kernelModules[*]}" > "$cache/ready"
}

# buildModule FOLDER SOURCE TARGET: TARGET.ko from SOURCE, against the headers of the kernel in FOLDER, whose packages are
# kept beside it. Returns 1 when they cannot be had.
buildModule() {
  local headers=$1/headers name package place
  name=linux-headers-$(basename "$1"/modules/*)
  if [ ! -e "$headers/ready" ]; then
    rm -rf "$headers"
    mkdir -p "$headers"
    (cd "$headers" && apt-get download -q "$name" $(dependsOn "$name" 'headers|kbuild') > apt.log 2>&1) ||
      { tail -n 1 "$headers/apt.log"; return 1; }
    touch "$headers/ready"
  fi
  place=$(mktemp -d)  # whose path has no blanks, which make does not stand
  for package in "$headers"/*.deb; do dpkg-deb -x "$package" "$place"; done
  # The packages know each other by their places under /usr/src.
  sed -i "s|/usr/src|$place/usr/src|" "$place/usr/src/$name/Makefile"
  mkdir "$place/module"
  cp "$2" "$place/module/"
  echo "obj-m := $(basename "$3").o" > "$place/module/Makefile"
  # Without type data, whose maker few hosts have.
  make -C "$place/usr/src/$name" M="$place/module" CONFIG_DEBUG_INFO_BTF_MODULES= modules > "$3.log" 2>&1
  mv "$place/module/$(basename "$3").ko" "$3.ko" 2> /dev/null
  rm -rf "$place"
  [ -e "$3.ko" ] || { grep -m 1 -i error "$3.log"; return 1; }
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then fetchKernel "$1"; fi
