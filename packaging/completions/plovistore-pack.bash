# bash completion for plovistore-pack
_plovistore_pack() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    case "$previous" in
        --apps | --program) compopt -o dirnames; return ;;
    esac
    if [ "$COMP_CWORD" -eq 1 ]; then
        words="new check pack diff sums --help --version"
    elif [[ $word == -* ]]; then
        case "${COMP_WORDS[1]}" in
            check) words="--apps --json --strict --help" ;;
            pack) words="--apps --program --json --strict --help" ;;
            diff) words="--json --help" ;;
            *) words="--help" ;;
        esac
    else
        compopt -o dirnames
        return
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -F _plovistore_pack plovistore-pack
