#!/bin/bash
# installed.sh BUILD VERSION: what `cmake --install` puts below a prefix works from there and agrees with itself.
set -u
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
cmake --install "$1" --prefix "$prefix" >"$prefix/log" || { cat "$prefix/log"; exit 1; }
failures=0
complain() {
  echo "$1"
  failures=1
}

cd "$prefix/share/doc/tessarine" || exit 1
"$prefix/bin/tessarine-script" examples/adf4113-900mhz.script | grep -q 'output.*900' || complain 'the example does not tune'
readelf -d "$prefix/bin/tessarine-script" | grep -iE 'NEEDED.*(qt|x11|gtk)' && complain 'the script runner needs a toolkit'
for program in "$prefix"/bin/*; do
  name=$(basename "$program")
  [[ $("$program" --version) == "$name $2" ]] || complain "$name is not of version $2"
  page=$(zcat -f "$prefix/share/man/man1/$name".1*)
  if [[ $page == .so* ]]; then page=$(zcat -f "$prefix/share/man/${page#.so }"*); fi
  for option in $("$program" --help | grep -o '^  --[a-z]*'); do
    [[ ${page//\\/} == *"$option"* ]] || complain "$name: the manual does not know $option"
    [[ $option =~ help|version ]] || grep -q -e "$option" "$prefix/share/bash-completion/completions/$name" ||
      complain "$name: the completion does not know $option"
  done
done
for entry in "$prefix"/share/applications/*.desktop; do
  command=$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$entry")
  [[ -x $prefix/bin/$command ]] || complain "$entry starts $command, which is not there"
  wrong=$(desktop-file-validate "$entry" 2>/dev/null)  # nothing where there is no such program
  [[ -z $wrong ]] || complain "$wrong"
done
exit "$failures"
