# Completion of stringhost for bash. The names of methods are the program's own, asked for as they are needed.
_stringhost() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' word
  local -i at positional=0
  # The shell splits at = and @, too.
  if [[ $current == '=' ]]; then
    current=''
  elif [[ $previous == '=' ]]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
  elif [[ $previous == @ ]]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
    return
  fi
  for ((at = 1; at < COMP_CWORD; ++at)); do
    word=${COMP_WORDS[at]}
    case $word in
      --plugin | --host-version | --encoding | --without | --output | --repeat) at+=1 ;;
      -*) ;;
      *) if [[ -z $command ]]; then command=$word; else positional+=1; fi ;;
    esac
  done
  case $previous in
    --plugin) mapfile -t COMPREPLY < <(compgen -f -- "$current"); return ;;
    --encoding)
      mapfile -t COMPREPLY < <(compgen -W 'utf-8 ascii utf-16 utf-32 macroman windows-1252 none' -- "$current")
      return ;;
    --output) mapfile -t COMPREPLY < <(compgen -W 'text hex json raw' -- "$current"); return ;;
    --host-version | --without | --repeat) return ;;
  esac
  local words='--plugin --help'
  case $command in
    '') words+=' list call explain help tour --version' ;;
    list | help) words+=' --json' ;;
    call) words+=' --host-version --encoding --without --output --json --repeat' ;;
    explain) words+=' --host-version --encoding --without --json' ;;
  esac
  [[ -n $current && $current != -* && -n $command || $positional -gt 0 && $current != -* ]] && words=''
  case $command in
    call | explain | help | list)
      ((positional == 0)) && words+=" $("${COMP_WORDS[0]}" list 2>/dev/null | sed 's/(.*//' | sort -u)" ;;
  esac
  if [[ $current == @* ]]; then
    mapfile -t COMPREPLY < <(compgen -P @ -f -- "${current#@}")
  else
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
  fi
}
complete -F _stringhost stringhost
