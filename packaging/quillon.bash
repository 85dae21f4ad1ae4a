# Completion of the command lines of quillon and quillon-desktop in bash. Needs nothing but bash.

# The rules of check.
_quillon_rules=(missing-template settings-differ drifted stale-name broken-template unknown-template
  own-handling numbered would-refuse read-only unreadable unproved-meaning conflicting-constants)

# _quillon_words WORD...: the words that begin like the one under the cursor, quoted for the shell.
_quillon_words() {
  local word
  COMPREPLY=()
  for word in "$@"; do
    if [[ $word == "$cur"* ]]; then COMPREPLY+=("$(printf %q "$word")"); fi
  done
}

# _quillon_files ENDINGS: folders, and files with one of the endings, as in "vbg|vbp", in any letter case.
_quillon_files() {
  local file
  compopt -o filenames 2>/dev/null
  COMPREPLY=()
  while IFS= read -r file; do
    if [[ -d ${file/#\~\//$HOME/} || ${file,,} =~ \.($1)$ ]]; then COMPREPLY+=("$file"); fi
  done < <(compgen -f -- "$cur")
}

# _quillon_property: NAME=VALUE of --set; bash hands name, = and value over as words of their own.
_quillon_property() {
  if [[ $cur == = || ${COMP_WORDS[COMP_CWORD - 1]} == = ]]; then
    local name=${COMP_WORDS[COMP_CWORD - 1]}
    if [[ $name == = ]]; then name=${COMP_WORDS[COMP_CWORD - 2]}; fi
    if [[ $cur == = ]]; then cur=; fi
    case $name in
      Template) _quillon_words '(none)' ;;
      Locked | Trace) _quillon_words True False ;;
      Boundary) _quillon_words None VB Firewall ActiveX ;;
      Severity) _quillon_words Cosmetic Normal Fatal ;;
      Retry) _quillon_words Line Procedure None ;;
    esac
  else
    compopt -o nospace 2>/dev/null
    _quillon_words Template= Locked= Boundary= Severity= Retry= Trace=
  fi
}

# _quillon_value OPTION COMMAND: completes the value of an option; false when it takes none.
_quillon_value() {
  case $1 in
    -t | --template) _quillon_files dat ;;
    --settings) _quillon_files reg ;;
    --log) _quillon_files log ;;
    --pdf) _quillon_files pdf ;;
    --color) _quillon_words auto always never ;;
    --codepage) _quillon_words 1252 utf-8 932 936 949 950 1250 1251 ;;
    --type) _quillon_words Sub Function 'Property *' declarations ;;
    --procedure) _quillon_words '(declarations)' ;;
    --allow)
      _quillon_words err-read name-clash clean-up number-twice line-length continuations \
        procedure-size module-lines ;;
    --root) COMPREPLY=(); compopt -o dirnames 2>/dev/null ;;
    --select | --ignore) _quillon_words "${_quillon_rules[@]}" ;;
    --project | --component | --define | --wait | --run | --shape | --name | --file | --exclude | --since) COMPREPLY=() ;;
    --files-from | --baseline) _quillon_files 'json|txt' ;;
    --connect) _quillon_words startup external ;;
    --format)
      case $2 in
        list) _quillon_words table csv json ;;
        survey) _quillon_words table json ;;
        check) _quillon_words text json sarif github junit gitlab ;;
        *) _quillon_words text ;;
      esac ;;
    *) return 1 ;;
  esac
}

# _quillon_options COMMAND: the options that the command knows; without one, those that fit most.
_quillon_options() {
  local common=(-h --help -t --template --settings --log --color -q --quiet -v --verbose --trace)
  local scope=(--project --component --procedure --type --codepage --root --define)
  local files=(--file --exclude --since --staged --files-from)
  local rewriting=(-n --dry-run --diff --wait --exit-code --no-verify --allow)
  case $1 in
    list) _quillon_words "${common[@]}" "${scope[@]}" "${files[@]}" --suggested --pending --format ;;
    check)
      _quillon_words "${common[@]}" "${scope[@]}" "${files[@]}" --select --ignore --allow --format \
        --baseline --write-baseline ;;
    apply)
      _quillon_words "${common[@]}" "${scope[@]}" "${files[@]}" "${rewriting[@]}" --set --suggested ;;
    refresh | number | unnumber)
      _quillon_words "${common[@]}" "${scope[@]}" "${files[@]}" "${rewriting[@]}" ;;
    undo) _quillon_words "${common[@]}" -n --dry-run --diff --wait --list --run ;;
    report) _quillon_words "${common[@]}" --project --component --codepage --root --define --pdf --format ;;
    explain) _quillon_words "${common[@]}" "${scope[@]}" "${files[@]}" ;;
    config) _quillon_words "${common[@]}" "${scope[@]}" "${files[@]}" ;;
    survey) _quillon_words "${common[@]}" "${scope[@]}" --shape --format ;;
    template) _quillon_words "${common[@]}" --shape --name ;;
    text | rules | init) _quillon_words "${common[@]}" ;;
    *) _quillon_words --version "${common[@]}" "${scope[@]}" "${rewriting[@]}" ;;
  esac
}

# _quillon_operand COMMAND NUMBER: what a command takes beside options; the first one has number 1.
_quillon_operand() {
  case $1:$2 in
    :*) _quillon_words list check explain survey apply refresh number unnumber undo report template text init config rules ;;
    explain:1) _quillon_words "${_quillon_rules[@]}" ;;
    report:1) _quillon_words summary properties ;;
    template:1) _quillon_words check dump list learn ;;
    text:1) _quillon_words insert remove number extract signature unsignature ;;
    rules:1) _quillon_words show set reset ;;
    template:*) _quillon_files 'dat|vbg|vbp' ;;
    text:* | rules:*) COMPREPLY=() ;;
    *) _quillon_files 'vbg|vbp' ;;
  esac
}

_quillon() {
  local cur=${COMP_WORDS[COMP_CWORD]} command= last= operands=1 i word
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    case $word in
      -t | --template | --settings | --log | --pdf | --color | --codepage | --type | --procedure | \
        --project | --component | --root | --format | --set | --define | --select | --ignore | --wait | \
        --run | --allow | --file | --exclude | --since | --files-from | --baseline)
        if [[ ${COMP_WORDS[i + 1]} == = ]]; then i=$((i + 1)); fi  # --option=value
        if ((i + 1 >= COMP_CWORD)); then last=$word; fi
        i=$((i + 1))
        if [[ $word == --@(set|define) && ${COMP_WORDS[i + 1]} == = ]]; then
          if ((i + 2 >= COMP_CWORD)); then last=$word; fi
          i=$((i + 2))
        fi ;;
      -*) ;;
      *) if [[ -z $command ]]; then command=$word; else operands=$((operands + 1)); fi ;;
    esac
  done
  if [[ $last == --set ]]; then
    _quillon_property
  elif [[ -n $last ]]; then
    if [[ $cur == = ]]; then cur=; fi
    _quillon_value "$last" "$command"
  elif [[ $cur == -* ]]; then
    _quillon_options "$command"
  else
    _quillon_operand "$command" "$operands"
  fi
}

_quillon_desktop() {
  local cur=${COMP_WORDS[COMP_CWORD]}
  COMPREPLY=()
  if [[ $cur == -* ]]; then
    _quillon_words --connect -h --help --log --root --settings -t --template --version
  elif ! _quillon_value "${COMP_WORDS[COMP_CWORD - 1]}" ''; then
    _quillon_files 'vbg|vbp'
  fi
}

complete -F _quillon quillon
complete -F _quillon_desktop quillon-desktop
