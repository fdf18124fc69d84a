# SPDX-License-Identifier: Apache-2.0
# Completion of kvjobinfo's commands, options and what they take, for bash.

# shellcheck disable=SC2207 # words without blanks
_kvjobinfo() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[1]} ppd='' i
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        COMPREPLY=($(compgen -W 'show page explain options --help --version' -- "$word"))
        return
    fi
    case $before in
        --ppd | -o) COMPREPLY=($(compgen -f -- "$word")); return ;;
        --queue) COMPREPLY=($(compgen -W "$(lpstat -e 2> /dev/null)" -- "$word")); return ;;
        --user) COMPREPLY=($(compgen -u -- "$word")); return ;;
        --title | --copies) return ;;
    esac
    case $command:$word in
        show:-*) COMPREPLY=($(compgen -W '--json --show-secrets' -- "$word")) ;;
        page:-*) COMPREPLY=($(compgen -W '-o' -- "$word")) ;;
        explain:-*)
            COMPREPLY=($(compgen -W '--ppd --queue --user --title --copies --json' -- "$word"))
            ;;
        options:-*) COMPREPLY=($(compgen -W '--ppd --json' -- "$word")) ;;
        show:* | page:*) COMPREPLY=($(compgen -f -- "$word")) ;;
        explain:*)
            for ((i = 2; i < COMP_CWORD; i++)); do
                [ "${COMP_WORDS[i]}" != --ppd ] || ppd=${COMP_WORDS[i + 1]}
            done
            COMPREPLY=($(compgen -W "$(COLUMNS=1000 kvjobinfo options ${ppd:+--ppd "$ppd"} \
                2> /dev/null | sed -n 's/^  \([A-Za-z][^ ]*\) .*/\1=/p' | sort -u)" -- "$word"))
            compopt -o nospace
            ;;
    esac
}
complete -o filenames -F _kvjobinfo kvjobinfo
