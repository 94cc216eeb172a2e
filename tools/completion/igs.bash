# Completion of igs for bash. Commands, options and values are asked of the program itself.

# The commands, options of a command, or values of an option, as --help lists them.
_igs_commands() { "$1" --help 2>/dev/null | sed -n 's/^  \([a-z][a-z]*\) .*/\1/p'; }
_igs_options() { "$1" $2 --help 2>/dev/null | sed -n 's/^  \(-[a-z], \)\{0,1\}\(--[a-z-]*\).*/\2/p'; }
_igs_values() { "$1" $2 --help 2>/dev/null | sed -n "s/^  $3 \([A-Za-z]*|[A-Za-z|]*\).*/\1/p" | tr '|' '\n'; }
_igs_keys() { "$1" check --help 2>/dev/null | grep -o '\bkel[A-Z][A-Za-z0-9]*\|\bshape-[a-z]*'; }
_igs_classes() { "$1" explain --color never 2>/dev/null | sed 's/ .*//'; }

_igs() {
  local igs=${COMP_WORDS[0]} command=${COMP_WORDS[1]:-} word=${COMP_WORDS[COMP_CWORD]:-}
  local before=${COMP_WORDS[COMP_CWORD - 1]} values=
  COMPREPLY=()
  # "--format=json" comes as three words.
  if [[ $word == = ]]; then
    word=
  elif [[ $before == = ]]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  [[ $before != --* ]] || values=$(_igs_values "$igs" "$command" "$before")
  # File names are left to bash, which knows how to quote them: see the options of `complete`.
  if ((COMP_CWORD == 1)); then
    COMPREPLY=($(compgen -W "$(_igs_commands "$igs") --help --version" -- "$word"))
  elif [[ -n $values ]]; then
    COMPREPLY=($(compgen -W "$values" -- "$word"))
  elif [[ $before == --set ]]; then
    COMPREPLY=($(compgen -S = -W "$(_igs_keys "$igs")" -- "$word"))
    compopt -o nospace 2>/dev/null
  elif [[ $before == --ignore || $before == --only || $before == --severity ]]; then
    COMPREPLY=($(compgen -W "$(_igs_classes "$igs")" -- "$word"))
  elif [[ $before == --output-dir ]]; then
    mapfile -t COMPREPLY < <(compgen -d -- "$word")
    compopt -o filenames 2>/dev/null
  elif [[ $word == -?* ]]; then
    COMPREPLY=($(compgen -W "$(_igs_options "$igs" "$command")" -- "$word"))
  elif [[ $command == help ]]; then
    COMPREPLY=($(compgen -W "$(_igs_commands "$igs")" -- "$word"))
  elif [[ $command == explain ]]; then
    COMPREPLY=($(compgen -W "$(_igs_classes "$igs")" -- "$word"))
  fi
}

complete -o default -o bashdefault -F _igs igs
