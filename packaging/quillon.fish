# Completion of quillon's command line in fish.
set -l commands list check explain survey apply refresh number unnumber undo report template text init config rules
set -l in __fish_seen_subcommand_from
set -l none "not $in $commands"
set -l projects "__fish_complete_suffix .vbg; __fish_complete_suffix .vbp"

complete -c quillon -f
complete -c quillon -n "$none" -l version -d "Print the version"
complete -c quillon -s h -l help -d "Print help"
complete -c quillon -s t -l template -rka "(__fish_complete_suffix .dat)" -d "Template file"
complete -c quillon -l settings -rka "(__fish_complete_suffix .reg)" -d "Settings file"
complete -c quillon -l log -rF -d "Log failures to this file"
complete -c quillon -l color -xa "auto always never" -d "Colours on a terminal"
complete -c quillon -s q -l quiet -d "Only results and what went wrong"
complete -c quillon -s v -l verbose -d "Tell more"
complete -c quillon -l trace -d "Log entry and exit of the routines"

complete -c quillon -n "$none" -a list -d "List the procedures and their properties"
complete -c quillon -n "$none" -a check -d "Tell what is wrong with templates and their settings"
complete -c quillon -n "$none" -a explain -d "Tell about a rule of check, or why properties are suggested"
complete -c quillon -n "$none" -a survey -d "List hand-written error handlers by shape"
complete -c quillon -n "$none" -a apply -d "Set properties and make the code agree with them"
complete -c quillon -n "$none" -a refresh -d "Write the error handlers anew from the template file"
complete -c quillon -n "$none" -a number -d "Put line numbers in, or renew them"
complete -c quillon -n "$none" -a unnumber -d "Take line numbers out"
complete -c quillon -n "$none" -a undo -d "Take back what the last run wrote"
complete -c quillon -n "$none" -a report -d "Write a report on a project"
complete -c quillon -n "$none" -a template -d "Check or show a template file, or learn a template from code"
complete -c quillon -n "$none" -a text -d "Rewrite procedure texts, JSON in and out"
complete -c quillon -n "$none" -a init -d "Write a quillon.toml and a template file"
complete -c quillon -n "$none" -a config -d "Tell what holds and where it comes from"
complete -c quillon -n "$none" -a rules -d "Show or change the rules in the settings file"

set -l grouped list check explain survey apply refresh number unnumber report config
complete -c quillon -n "$in $grouped" -ka "($projects)"
complete -c quillon -n "$in $grouped" -l project -x -d "Projects by name"
complete -c quillon -n "$in $grouped" -l component -x -d "Components by name"
set -l scoped list check explain survey apply refresh number unnumber config
complete -c quillon -n "$in $scoped" -l procedure -xa "'(declarations)'" -d "Procedures by name"
complete -c quillon -n "$in $scoped" -l type -xa "Sub Function 'Property *' declarations" \
    -d "Types as list shows them"
complete -c quillon -n "$in $grouped" -l root -xa "(__fish_complete_directories)" \
    -d "Folder that may be written too"
complete -c quillon -n "$in $grouped" -l codepage -xa "1252 utf-8 932 936 949 950 1250 1251" \
    -d "Code page of the files"
complete -c quillon -n "$in $grouped" -l define -x -d "Constant of conditional compilation, NAME=VALUE"

complete -c quillon -n "$in $scoped" -l file -x -d "Files that fit a pattern"
complete -c quillon -n "$in $scoped" -l exclude -x -d "Leave out files that fit a pattern"
complete -c quillon -n "$in $scoped" -l since -x -d "Files that differ from a revision"
complete -c quillon -n "$in $scoped" -l staged -d "Files that the next commit changes"
complete -c quillon -n "$in $scoped" -l files-from -rF -d "Files that are listed there"

set -l writing apply refresh number unnumber
complete -c quillon -n "$in $writing undo" -s n -l dry-run -d "Write nothing"
complete -c quillon -n "$in $writing undo" -l diff -d "Print the changes as a unified diff"
complete -c quillon -n "$in $writing undo" -l wait -x -d "Seconds to wait for another run"
complete -c quillon -n "$in $writing" -l exit-code -d "With -n: status 1 when files would change"
complete -c quillon -n "$in $writing" -l no-verify -d "Leave out the proof of each insertion"
complete -c quillon -n "$in $writing check" -l allow \
    -xa "err-read name-clash clean-up number-twice line-length continuations procedure-size module-lines" \
    -d "Let a rule of the proof pass"

complete -c quillon -n "$in list apply" -l suggested -d "What is suggested"
complete -c quillon -n "$in list" -l pending -d "What is asked for"
complete -c quillon -n "$in list" -l format -xa "table csv json" -d "Form of the result"
set -l rules missing-template settings-differ drifted stale-name broken-template unknown-template \
    own-handling numbered would-refuse read-only unreadable unproved-meaning conflicting-constants
complete -c quillon -n "$in explain" -a "$rules"
complete -c quillon -n "$in check" -l select -xa "$rules" -d "Find by these rules"
complete -c quillon -n "$in check" -l ignore -xa "$rules" -d "Leave these rules out"
complete -c quillon -n "$in check" -l format -xa "text json sarif github junit gitlab" -d "Form of the result"
complete -c quillon -n "$in check" -l baseline -rF -d "Leave out what this file holds"
complete -c quillon -n "$in check" -l write-baseline -d "Write the findings into the baseline"
complete -c quillon -n "$in report" -l format -xa text -d "Form of the result"
complete -c quillon -n "$in report" -l pdf -rka "(__fish_complete_suffix .pdf)" -d "File to write"
complete -c quillon -n "$in report" -a "summary properties"
complete -c quillon -n "$in apply" -l set -x -d "Set a property" \
    -a "Template= Locked={True,False} Boundary={None,VB,Firewall,ActiveX} \
        Severity={Cosmetic,Normal,Fatal} Retry={Line,Procedure,None} Trace={True,False}"

complete -c quillon -n "$in undo" -ka "($projects)"
complete -c quillon -n "$in undo" -l list -d "List the runs, the latest first"
complete -c quillon -n "$in undo" -l run -x -d "Number of the run in the list"

complete -c quillon -n "$in survey" -l format -xa "table json" -d "Form of the result"
complete -c quillon -n "$in survey template" -l shape -x -d "Number of the shape"
complete -c quillon -n "$in template" -l name -x -d "Name of the template"
complete -c quillon -n "$in template" -a "check dump list learn"
complete -c quillon -n "$in template" -ka "(__fish_complete_suffix .dat)"
complete -c quillon -n "$in text" -a "insert remove number extract signature unsignature"
complete -c quillon -n "$in rules" -a "show set reset"
