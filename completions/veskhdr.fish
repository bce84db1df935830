# Completion of veskhdr for fish.

function __veskhdr_devices
    echo processor
    veskhdr devices 2>/dev/null | string match --regex '^[^ ].*' | string match --invert 'There is no *'
end

complete -c veskhdr -n __fish_use_subcommand -f -a merge -d 'Merge pictures of one scene into one'
complete -c veskhdr -n __fish_use_subcommand -f -a devices -d 'List or check the OpenCL devices'
complete -c veskhdr -n __fish_use_subcommand -f -a group -d 'Find the brackets in a folder'
complete -c veskhdr -n __fish_use_subcommand -l version -d 'Show the version'
complete -c veskhdr -l help -d 'Show how to use it'

complete -c veskhdr -n '__fish_seen_subcommand_from merge' -s o -l output -r -d 'File to write'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l method -x -a 'fusion mean' -d 'How to merge'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l align -x -a 'perspective shift none' -d 'How to align'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l reference -r -d 'The picture that the others are aligned to'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l ghosts -r -a 'auto off' -d 'The shot that moving things come from'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l ghost-mask -r -d 'Write what moved'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l exposure -x -d 'Stops, -4 to 4'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l contrast -x -d '-1 to 1'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l saturation -x -d '0 to 3'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l exposure-weight -x -d '0 to 4'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l contrast-weight -x -d '0 to 4'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l saturation-weight -x -d '0 to 4'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l no-align -d 'Take the pictures as they are'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l keep-order -d 'Keep the order given'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l crop -d 'Cut to the area that every picture covers'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l device -x -a '(__veskhdr_devices)' -d 'OpenCL device'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l quality -x -d 'JPEG quality, 1 to 100'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l max-megapixels -x -d 'Refuse larger pictures'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l force -d 'Replace the output if it exists'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l json -d 'Print one JSON object'
complete -c veskhdr -n '__fish_seen_subcommand_from merge' -l verbose -d 'Print times and shifts'

complete -c veskhdr -n '__fish_seen_subcommand_from devices' -f -l check -a '(__veskhdr_devices)' -d 'Merge and compare'
complete -c veskhdr -n '__fish_seen_subcommand_from devices' -f -l json -d 'Print one JSON object'

complete -c veskhdr -n '__fish_seen_subcommand_from group' -x -l gap -d 'Longest pause in seconds'
complete -c veskhdr -n '__fish_seen_subcommand_from group' -x -l min -d 'Fewest pictures of a bracket'
complete -c veskhdr -n '__fish_seen_subcommand_from group' -l raw -d 'List the raw file where there are both'
complete -c veskhdr -n '__fish_seen_subcommand_from group' -l recursive -d 'Look into the folders below as well'
