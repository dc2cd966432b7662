# bash completion for PloviStore
_PloviStore() {
    mapfile -t COMPREPLY < <(compgen -W "--self-test" -- "${COMP_WORDS[COMP_CWORD]}")
}
complete -F _PloviStore PloviStore
