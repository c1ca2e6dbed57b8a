# bash completion for perchly

_perchly() {
    local words=
    case $COMP_CWORD:${COMP_WORDS[1]} in
    1:*) words="toggle show hide search workspace mixer settings capture hold launch layout group
        player focus dock quit --help --version" ;;
    2:workspace) words="search files clipboard layouts shortcuts meetings launch snippets focus device" ;;
    2:player) words="play-pause next previous back forward" ;;
    2:focus) words="start break pause stop" ;;
    2:dock) words="top left right" ;;
    *:hold) compopt -o default ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "${COMP_WORDS[COMP_CWORD]}")
}

complete -F _perchly perchly
