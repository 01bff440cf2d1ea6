#!/bin/bash
# layering.sh SRC: each folder includes only what stands below or beside it, and the core includes no header
# but its own and the standard library's.
set -u
cd "$1" || exit 1

model="engine chips setup transport"  # one class, declared in engine/, defined across the four
ground="forms platform"
windows="window modes dialogs"
screen="desktop desktop/board board window dialogs $ground"

declare -A sees=(
  [platform]="platform"
  [forms]="$ground"
  [engine]="$model $ground" [chips]="$model $ground" [setup]="$model $ground" [transport]="$model $ground"
  [window]="$windows $model $ground" [modes]="$windows $model $ground" [dialogs]="$windows $model $ground"
  [board]="board platform"  # the receiving end shares no code with the sending one
  [script]="script window dialogs $ground"
  [remote]="remote script board window dialogs $ground"
  [desktop]="$screen" [desktop/board]="$screen"
  [platform/linux]="platform/linux platform"
  [apps]="apps desktop desktop/board remote script board platform/linux $windows $model $ground"
)

complaints=$(while IFS=: read -r file line include; do
  file=${file#./}
  from=${file%/*}
  if [[ -z ${sees[$from]:-} ]]; then
    echo "$file: the folder has no place in the layers"
  elif [[ $include == *'"'* ]]; then
    header=${include#*\"} header=${header%\"*}
    [[ " ${sees[$from]} " == *" ${header%/*} "* ]] || echo "$file:$line: $from must not see $header"
  elif [[ $from != desktop* && $from != platform/linux && $from != apps ]]; then
    header=${include#*<}
    [[ ${header%%>*} =~ ^[a-z_]+$ ]] || echo "$file:$line: <${header%%>*} is no header of the standard library"
  elif [[ $from != desktop* && $include == *'<Q'* && $file != apps/WindowMain.cpp ]]; then
    echo "$file:$line: the toolkit has no place in $from"
  fi
done < <(grep -rnE '^[[:space:]]*#[[:space:]]*include' --include='*.h' --include='*.cpp' .))
echo "$complaints"
[[ -z $complaints ]]
