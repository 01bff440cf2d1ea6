# Completion of the options and files of tessarine, tessarine-virtual and tessarine-script.

_tessarine() {
  local cur prev words cword
  _init_completion -n = || return
  local option=$prev value=$cur
  if [[ $cur == --*=* ]]; then
    option=${cur%%=*}
    value=${cur#*=}
  fi
  case $option in
    --board) mapfile -t COMPREPLY < <(compgen -W 'hardware virtual gpio' -- "$value") ;;
    --trace) cur=$value _filedir vcd ;;
    --record) cur=$value _filedir script ;;
    --wires) cur=$value _filedir ;;
    --serve) mapfile -t COMPREPLY < <(compgen -W '127.0.0.1: 0.0.0.0:' -- "$value") ; compopt -o nospace ;;
    *)
      if [[ $cur == -* ]]; then
        # Those that the program on this machine has.
        mapfile -t COMPREPLY < <(compgen -W "$("$1" --help 2>/dev/null | grep -o '^  --[a-z]*')" -- "$cur")
      else
        _filedir script
      fi
      ;;
  esac
} &&
  complete -F _tessarine tessarine tessarine-virtual tessarine-script
