# bash completion for plovistore-pack
_plovistore_pack() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    case "$previous" in
        --icon) compopt -o default; return ;;
        --apps | --program) compopt -o dirnames; return ;;
    esac
    if [ "$COMP_CWORD" -eq 1 ]; then
        words="new bundle check pack diff sums --help --version"
    elif [[ $word == -* ]]; then
        case "${COMP_WORDS[1]}" in
            bundle) words="--id --version --name --icon --json --help" ;;
            check) words="--apps --json --strict --help" ;;
            pack) words="--apps --program --json --strict --help" ;;
            diff) words="--json --help" ;;
            *) words="--help" ;;
        esac
    elif [ "${COMP_WORDS[1]}" = bundle ]; then
        compopt -o default
        return
    else
        compopt -o dirnames
        return
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -F _plovistore_pack plovistore-pack
