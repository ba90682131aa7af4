# Completion of flm. Written by tools/completion/generate from the help of the tool.
# shellcheck shell=bash

_flm_commands() {
  case $1 in
    '') echo ls count info mkcard new next last set-last avail series import protect unprotect rm pages browse print check scan ;;
    'series') echo show set ;;
    'print') echo show set size index clear save load ;;
  esac
}

_flm_options() {
  case $1 in
    '') echo -h --help --version --help-all --read-only --progress --color ;;
    'ls') echo -h --help --help-all -l --long --json --jsonl --tsv --paths -0 --null --companions --non-dcf --no-non-dcf --protected --unprotected --selected --with-companion --type --since --read-only --progress --color ;;
    'count') echo -h --help --help-all --non-dcf --no-non-dcf --protected --unprotected --selected --with-companion --type --since --read-only --progress --color ;;
    'info') echo -h --help --help-all --json --read-only --progress --color ;;
    'mkcard') echo -h --help --help-all --files --dirs --companions --camera --jpeg --movies --seed --prefix --read-only --progress --color ;;
    'new') echo -h --help --help-all --series --prefix --date-files --date-folders --3d -0 --null --read-only --progress --color ;;
    'next') echo -h --help --help-all --series --prefix --date-files --date-folders --3d -0 --null --read-only --progress --color ;;
    'last') echo -h --help --help-all --series --read-only --progress --color ;;
    'set-last') echo -h --help --help-all --force --dry-run --read-only --progress --color ;;
    'avail') echo -h --help --help-all --read-only --progress --color ;;
    'series') echo -h --help --help-all --read-only --progress --color ;;
    'series show') echo -h --help --help-all --read-only --progress --color ;;
    'series set') echo -h --help --help-all --force --dry-run --read-only --progress --color ;;
    'import') echo -h --help --help-all --series --prefix --date-files --date-folders --3d -0 --null --read-only --progress --color ;;
    'protect') echo -h --help --help-all -a --all -y --yes -q --quiet -n --dry-run --protected --unprotected --selected --with-companion --type --since --read-only --progress --color ;;
    'unprotect') echo -h --help --help-all -a --all -y --yes -q --quiet -n --dry-run --protected --unprotected --selected --with-companion --type --since --read-only --progress --color ;;
    'rm') echo -h --help --help-all -a --all -y --yes -q --quiet -n --dry-run -f --force --protected --unprotected --selected --with-companion --type --since --read-only --progress --color ;;
    'pages') echo -h --help --help-all --size --page --json --read-only --progress --color ;;
    'browse') echo -h --help --help-all --graphics --non-dcf --no-non-dcf --read-only --progress --color ;;
    'print') echo -h --help --help-all --read-only --progress --color ;;
    'print show') echo -h --help --help-all --json --read-only --progress --color ;;
    'print set') echo -h --help --help-all -a --all --creator --protected --unprotected --selected --with-companion --type --since --read-only --progress --color ;;
    'print size') echo -h --help --help-all -a --all --creator --protected --unprotected --selected --with-companion --type --since --read-only --progress --color ;;
    'print index') echo -h --help --help-all --creator --read-only --progress --color ;;
    'print clear') echo -h --help --help-all --creator --read-only --progress --color ;;
    'print save') echo -h --help --help-all --creator --read-only --progress --color ;;
    'print load') echo -h --help --help-all --merge --creator --read-only --progress --color ;;
    'check') echo -h --help --help-all --json --read-only --progress --color ;;
    'scan') echo -h --help --help-all --explain --json --jsonl --tsv --non-dcf --no-non-dcf --read-only --progress --color ;;
  esac
}

# Options that take a value, and the words that it can be.
_flm_takes_value() {
  case $1 in
    --color | --creator | --dirs | --files | --graphics | --page | --prefix | --progress | --seed | --since | --size | --type) ;;
    *) return 1 ;;
  esac
}

_flm_values() {
  case $1 in
    --color) echo auto always never ;;
    --graphics) echo auto sixel kitty blocks ;;
    --progress) echo auto always never json ;;
    --type) echo jpg srw mp4 3gp mp3 wav mpo ;;
  esac
}

# What the arguments of a command are; the last one may come again.
_flm_places() {
  case $1 in
    'ls') echo folder card+ ;;
    'count') echo folder ;;
    'info') echo folder card+ ;;
    'mkcard') echo folder ;;
    'new') echo folder :jpg,srw,mp4,3gp,mp3,wav,mpo ;;
    'next') echo folder :jpg,srw,mp4,3gp,mp3,wav,mpo ;;
    'last') echo folder ;;
    'set-last') echo folder none ;;
    'avail') echo folder ;;
    'series set') echo none ;;
    'import') echo folder file+ ;;
    'protect') echo folder card+ ;;
    'unprotect') echo folder card+ ;;
    'rm') echo folder card+ ;;
    'pages') echo folder ;;
    'browse') echo folder ;;
    'print show') echo folder ;;
    'print set') echo folder none card+ ;;
    'print size') echo folder :0,3,4,5,8 card+ ;;
    'print index') echo folder :on,off ;;
    'print clear') echo folder ;;
    'print save') echo folder ;;
    'print load') echo folder file ;;
    'check') echo folder ;;
    'scan') echo folder ;;
  esac
}

_flm_words() { mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2"); }

# Arguments: a folder, a file of this machine, a file of the card, or one of a few words.
_flm_argument() {
  local kind=$1 word=$2 root=$3 path
  case $kind in
    :*) _flm_words "${kind#:}" "$word" ;;
    folder)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -d -- "$word")
      ;;
    file*)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$word")
      ;;
    card*)
      compopt -o filenames 2>/dev/null
      while IFS= read -r -d '' path; do
        if [[ $path == "$word"* ]]; then COMPREPLY+=("$path"); fi
      done < <("${COMP_WORDS[0]}" --read-only ls -0 -- "$root" 2>/dev/null)
      ;;
  esac
}

_flm() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local command='' root='' places=0 i part kinds
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; ++i)); do
    part=${COMP_WORDS[i]}
    if [[ ${COMP_WORDS[i + 1]} == = ]]; then
      ((i += 2))
    elif [[ $part == -* ]]; then
      if _flm_takes_value "$part"; then ((++i)); fi
    elif [[ " $(_flm_commands "$command") " == *" $part "* ]]; then
      command=${command:+$command }$part
    else
      if ((places == 0)); then root=$part; fi
      ((++places))
    fi
  done
  if [[ $word == = ]]; then
    word=
  elif [[ $before == = ]]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  if _flm_takes_value "$before"; then
    _flm_words "$(_flm_values "$before")" "$word"
  elif [[ $word == -* ]]; then
    _flm_words "$(_flm_options "$command")" "$word"
  elif [[ -n $(_flm_commands "$command") ]]; then
    _flm_words "$(_flm_commands "$command")" "$word"
  else
    read -r -a kinds <<<"$(_flm_places "$command")"
    if ((places >= ${#kinds[@]})) && [[ ${kinds[-1]-} == *+ ]]; then places=$((${#kinds[@]} - 1)); fi
    if ((places < ${#kinds[@]})); then
      IFS=, read -r -a part <<<"${kinds[places]}"
      _flm_argument "${part[*]}" "$word" "$root"
    fi
  fi
}

complete -F _flm flm
