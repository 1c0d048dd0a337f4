# bash completion for iocv

_iocv_settings='--century --decimal --leading-zero --missing --code-page --cca --ccb --ccc --ccd --cce'
_iocv_run='--threads --block --progress --quiet'
_iocv_rejects='--rejects --rejected-records --max-rejects'

_iocv_options() {
  case $1 in
    write) echo "--json $_iocv_settings" ;;
    read) echo "--iso --json $_iocv_settings" ;;
    formats) echo "--json" ;;
    decode) echo "-o --output --to $_iocv_rejects $_iocv_run $_iocv_settings" ;;
    encode) echo "-o --output --from --on-error $_iocv_rejects $_iocv_run $_iocv_settings" ;;
    check) echo "$_iocv_run $_iocv_settings" ;;
    verify) echo "--fields-only $_iocv_run $_iocv_settings" ;;
    inspect) echo "" ;;
    dump) echo "--record $_iocv_settings" ;;
  esac
}

_iocv() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W \
      'write read formats decode encode check verify inspect dump --help --version' -- "$word")
    return
  fi
  case $before in
    --to) mapfile -t COMPREPLY < <(compgen -W 'csv jsonl sqlite' -- "$word") ;;
    --from) mapfile -t COMPREPLY < <(compgen -W 'csv jsonl' -- "$word") ;;
    --on-error) mapfile -t COMPREPLY < <(compgen -W 'stop skip blank' -- "$word") ;;
    --decimal) mapfile -t COMPREPLY < <(compgen -W '. ,' -- "$word") ;;
    --century | --missing | --code-page | --cc[a-e] | --threads | --block | --progress | --record | \
      --max-rejects) ;;
    *)
      if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_iocv_options "$command") --help" -- "$word")
      else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
      fi
      ;;
  esac
}

complete -F _iocv iocv
