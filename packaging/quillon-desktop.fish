# Completion of quillon-desktop's command line in fish.
complete -c quillon-desktop -f
complete -c quillon-desktop -ka "(__fish_complete_suffix .vbg; __fish_complete_suffix .vbp)"
complete -c quillon-desktop -l connect -xa "startup external" -d "How the add-in is connected"
complete -c quillon-desktop -l settings -rka "(__fish_complete_suffix .reg)" -d "Settings file"
complete -c quillon-desktop -l root -xa "(__fish_complete_directories)" \
    -d "Folder that may be written too"
complete -c quillon-desktop -l log -rF -d "Log failures to this file"
complete -c quillon-desktop -s h -l help -d "Print the options"
complete -c quillon-desktop -l version -d "Print the version"
complete -c quillon-desktop -s t -l template -rka "(__fish_complete_suffix .dat)" -d "Template file"
