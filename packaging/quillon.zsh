#compdef quillon quillon-desktop
# Completion of the command lines of quillon and quillon-desktop in zsh.

_quillon_projects() { _files -g '*.(#i)(vbg|vbp)(-.)' }

_quillon_property() {
  if compset -P 1 'Template='; then
    compadd -- '(none)'
  elif compset -P 1 '(Locked|Trace)='; then
    compadd -- True False
  elif compset -P 1 'Boundary='; then
    compadd -- None VB Firewall ActiveX
  elif compset -P 1 'Severity='; then
    compadd -- Cosmetic Normal Fatal
  elif compset -P 1 'Retry='; then
    compadd -- Line Procedure None
  else
    compadd -S = -- Template Locked Boundary Severity Retry Trace
  fi
}

_quillon_program() {
  local -a common reading files scope changing rewriting commands
  local state line
  common=(
    '(-h --help)'{-h,--help}'[print help]'
    '(-t --template)'{-t,--template}'[template file]:template file:_files -g "*.(#i)dat(-.)"'
    '--settings[settings file]:settings file:_files -g "*.(#i)reg(-.)"'
    '--log[log failures to this file]:log file:_files'
    '--color[colours on a terminal]:when:(auto always never)'
    '(-q --quiet)'{-q,--quiet}'[only results and what went wrong]'
    '(-v --verbose)'{-v,--verbose}'[tell more]'
    '--trace[log entry and exit of the routines]'
  )
  reading=(
    '--codepage[code page of the files]:code page:(1252 utf-8 932 936 949 950 1250 1251)'
    '*--root[folder that may be written too]:folder:_files -/'
    '*--define[constant of conditional compilation]:NAME=VALUE:'
  )
  scope=(
    $reading
    '*--project[projects by name]:pattern:'
    '*--component[components by name]:pattern:'
    '*--procedure[procedures by name]:pattern:{compadd -- "(declarations)"}'
    '*--type[types as list shows them]:pattern:(Sub Function Property\ \* declarations)'
  )
  files=(
    '*--file[files that fit a pattern]:pattern:'
    '*--exclude[leave out files that fit a pattern]:pattern:'
    '--since[files that differ from a revision]:revision:'
    '--staged[files that the next commit changes]'
    '--files-from[files that are listed there]:list:_files'
  )
  changing=(
    '(-n --dry-run)'{-n,--dry-run}'[write nothing]'
    '--diff[print the changes as a unified diff]'
    '--wait[how long to wait for another run]:seconds:'
  )
  rewriting=(
    $changing
    '--exit-code[with -n: status 1 when files would change]'
    '--no-verify[leave out the proof of each insertion]'
    '*--allow[let a rule of the proof pass]:rule:(err-read name-clash clean-up number-twice line-length continuations procedure-size module-lines)'
  )
  commands=(
    'list:list the procedures and their properties'
    'check:tell what is wrong with templates and their settings'
    'explain:tell about a rule of check, or why properties are suggested'
    'survey:list hand-written error handlers by shape'
    'apply:set properties and make the code agree with them'
    'refresh:write the error handlers anew from the template file'
    'number:put line numbers in, or renew them'
    'unnumber:take line numbers out'
    'undo:take back what the last run wrote'
    'report:write a report on a project'
    'template:check or show a template file, or learn a template from code'
    'text:rewrite procedure texts, JSON in and out'
    'init:write a quillon.toml and a template file'
    'config:tell what holds and where it comes from'
    'rules:show or change the rules in the settings file'
  )
  local rules='missing-template settings-differ drifted stale-name broken-template unknown-template
    own-handling numbered would-refuse read-only unreadable unproved-meaning conflicting-constants'
  _arguments -C $common $scope $rewriting '--version[print the version]' \
    '1:command:->command' '*::argument:->argument'
  case $state in
    command) _describe command commands ;;
    argument)
      case $line[1] in
        list)
          _arguments $common $scope $files '(--pending)--suggested[what is suggested]' \
            '(--suggested)--pending[what is asked for]' '--format[form]:form:(table csv json)' \
            '*:path:_quillon_projects' ;;
        check)
          _arguments $common $scope $files "*--select[find by these rules]:rule:($rules)" \
            "*--ignore[leave these rules out]:rule:($rules)" '*--allow[let a rule of the proof pass]:rule:(err-read name-clash clean-up number-twice line-length continuations procedure-size module-lines)' \
            '--baseline[leave out what this file holds]:baseline:_files' \
            '--write-baseline[write the findings into the baseline]' \
            '--format[form]:form:(text json sarif github junit gitlab)' \
            '*:path:_quillon_projects' ;;
        explain) _arguments $common $scope $files "1:rule:($rules)" '*:path:_quillon_projects' ;;
        survey)
          _arguments $common $scope '--shape[one shape in full]:number:' \
            '--format[form]:form:(table json)' '*:path:_quillon_projects' ;;
        apply)
          _arguments $common $scope $files $rewriting '*--set[set a property]:property:_quillon_property' \
            '--suggested[take the suggested values over]' '*:path:_quillon_projects' ;;
        refresh | number | unnumber)
          _arguments $common $scope $files $rewriting '*:path:_quillon_projects' ;;
        undo)
          _arguments $common $changing '--list[list the runs, the latest first]' \
            '--run[number of the run in the list]:number:' '*:path:_quillon_projects' ;;
        report)
          _arguments $common $reading '*--project[projects by name]:pattern:' \
            '*--component[components by name]:pattern:' \
            '--pdf[file to write]:file:_files -g "*.(#i)pdf(-.)"' \
            '--format[form]:form:(text)' '1:report:(summary properties)' '*:path:_quillon_projects' ;;
        template)
          _arguments $common '--shape[number of the shape]:number:' '--name[name of the template]:name:' \
            '1:action:(check dump list learn)' '*:file:_files -g "*.(#i)(dat|vbg|vbp)(-.)"' ;;
        text) _arguments $common '1:operation:(insert remove number extract signature unsignature)' ;;
        init) _arguments $common '1:folder:_files -/' ;;
        config) _arguments $common $scope $files '*:path:_quillon_projects' ;;
        rules) _arguments $common '1:action:(show set reset)' '*:rule:' ;;
      esac ;;
  esac
}

_quillon_desktop() {
  _arguments '--connect[how the add-in is connected]:mode:(startup external)' \
    '--settings[settings file]:settings file:_files -g "*.(#i)reg(-.)"' \
    '*--root[folder that may be written too]:folder:_files -/' \
    '(-t --template)'{-t,--template}'[template file]:template file:_files -g "*.(#i)dat(-.)"' \
    '1:group:_quillon_projects'
}

case $service in
  quillon-desktop) _quillon_desktop ;;
  *) _quillon_program ;;
esac
