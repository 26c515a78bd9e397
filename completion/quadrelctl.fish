# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT

# fish completion for quadrelctl

set -l commands discover info status read save show check convert diff write edit set get unset undo backups clock \
    network reset upgrade remark site help

# The file of "set FILE PATH=VALUE" and the like.
function __quadrelctl_file
    string match -r -- '\S+\.(?:yaml|yml|json|xml)$' (commandline -opc) | tail -n 1
end

function __quadrelctl_paths
    set -l file (__quadrelctl_file)
    test -n "$file"; and quadrelctl complete paths $file 2>/dev/null
end

complete -c quadrelctl -n "not __fish_seen_subcommand_from $commands" -f
complete -c quadrelctl -n "not __fish_seen_subcommand_from $commands" -l version -d "Print the version"
complete -c quadrelctl -n __fish_use_subcommand -a discover -d "Find the units on the network"
complete -c quadrelctl -n __fish_use_subcommand -a info -d "Show what a unit says about itself"
complete -c quadrelctl -n __fish_use_subcommand -a read -d "Read everything that a unit stores"
complete -c quadrelctl -n __fish_use_subcommand -a status -d "Show who a unit is and whether it holds what a file says"
complete -c quadrelctl -n __fish_use_subcommand -a save -d "Save what a unit holds"
complete -c quadrelctl -n __fish_use_subcommand -a site -d "Work with the many units of a site"
complete -c quadrelctl -n __fish_use_subcommand -a show -d "Show what a file holds"
complete -c quadrelctl -n __fish_use_subcommand -a check -d "Look for mistakes in files"
complete -c quadrelctl -n __fish_use_subcommand -a convert -d "Save a file in another form"
complete -c quadrelctl -n __fish_use_subcommand -a diff -d "Compare two files or units"
complete -c quadrelctl -n __fish_use_subcommand -a write -d "Write a file to a unit"
complete -c quadrelctl -n __fish_use_subcommand -a edit -d "Edit a file or what a unit holds"
complete -c quadrelctl -n __fish_use_subcommand -a set -d "Change single values"
complete -c quadrelctl -n __fish_use_subcommand -a get -d "Print single values"
complete -c quadrelctl -n __fish_use_subcommand -a unset -d "Remove single records or values"
complete -c quadrelctl -n __fish_use_subcommand -a undo -d "Bring back what a unit held before"
complete -c quadrelctl -n __fish_use_subcommand -a backups -d "List what was kept of units"
complete -c quadrelctl -n __fish_use_subcommand -a clock -d "Show or set the clock"
complete -c quadrelctl -n __fish_use_subcommand -a network -d "Give a unit a fixed address"
complete -c quadrelctl -n __fish_use_subcommand -a reset -d "Restart a unit"
complete -c quadrelctl -n __fish_use_subcommand -a upgrade -d "Replace the firmware"
complete -c quadrelctl -n __fish_use_subcommand -a remark -d "Write the remark of an image"
complete -c quadrelctl -n __fish_use_subcommand -a help -d "Show help"
complete -c quadrelctl -n "__fish_seen_subcommand_from help" -f -a "$commands"

complete -c quadrelctl -s h -l help -d "Print help"
complete -c quadrelctl -l language -x -a "zh en" -d "Language of all texts"
complete -c quadrelctl -l timeout -x -d "Milliseconds for one answer"
complete -c quadrelctl -l retries -x -d "How often a request is repeated"
complete -c quadrelctl -l log -r -d "Write down each frame"
complete -c quadrelctl -l quiet -d "Show only results, warnings and errors"
complete -c quadrelctl -l yes -d "Do not ask"
complete -c quadrelctl -l no-pager -d "No pager"

set -l on_units info read write edit set get unset undo clock network reset upgrade remark
complete -c quadrelctl -n "__fish_seen_subcommand_from $on_units" -l unit -x \
    -a "(quadrelctl complete units 2>/dev/null)" -d "Name or address of the unit"
complete -c quadrelctl -n "__fish_seen_subcommand_from write edit set unset undo clock network reset upgrade remark" \
    -l dry-run -d "Change nothing"
complete -c quadrelctl -n "__fish_seen_subcommand_from discover info read show diff write backups clock" \
    -l json -d "Print JSON"
complete -c quadrelctl -n "__fish_seen_subcommand_from read write" -l only -x \
    -a "(quadrelctl complete sections 2>/dev/null)" -d Sections
complete -c quadrelctl -n "__fish_seen_subcommand_from read" -l discover -d "The only unit found"
complete -c quadrelctl -n "__fish_seen_subcommand_from read" -l save -r -d "Save to a file"
complete -c quadrelctl -n "__fish_seen_subcommand_from write" -l other-unit -d "What another unit holds"
complete -c quadrelctl -n "__fish_seen_subcommand_from diff" -a "(quadrelctl complete units 2>/dev/null)"
complete -c quadrelctl -n "__fish_seen_subcommand_from set get unset; and test -n (__quadrelctl_file)" -f \
    -a "(__quadrelctl_paths)"
complete -c quadrelctl -n "__fish_seen_subcommand_from backups" -l serial -x -d "Of this unit alone"
complete -c quadrelctl -n "__fish_seen_subcommand_from clock" -l set -x -a now -d "Set it"
complete -c quadrelctl -n "__fish_seen_subcommand_from network" -l ip -x -d "New address"
complete -c quadrelctl -n "__fish_seen_subcommand_from network" -l mask -x -d "Subnet mask"
complete -c quadrelctl -n "__fish_seen_subcommand_from network" -l gateway -x -d Gateway
complete -c quadrelctl -n "__fish_seen_subcommand_from reset" -l default-address -d "Back to the default address"
complete -c quadrelctl -n "__fish_seen_subcommand_from upgrade" -l force -d "Whatever the files look like"
complete -c quadrelctl -n "__fish_seen_subcommand_from upgrade remark" -l streamed -r -d "Streamed image"
complete -c quadrelctl -n "__fish_seen_subcommand_from upgrade" -l addressed -r -d "Addressed image"
complete -c quadrelctl -n "__fish_seen_subcommand_from upgrade" -l descriptor -r -d Descriptor
complete -c quadrelctl -n "__fish_seen_subcommand_from discover" -l first -d "End with the first answer"
complete -c quadrelctl -n "__fish_seen_subcommand_from discover" -l upgrade -x -d "Units of any model"

set -l sites add remove list discover status backup diff check write upgrade clock set unset run
complete -c quadrelctl -n "__fish_seen_subcommand_from site; and not __fish_seen_subcommand_from $sites" -f -a "$sites"
for option in tag name exclude jobs limit canary batch max-failures
    complete -c quadrelctl -n "__fish_seen_subcommand_from site" -l $option -x
end
complete -c quadrelctl -n "__fish_seen_subcommand_from site" -l inventory -r -d "The inventory"
complete -c quadrelctl -n "__fish_seen_subcommand_from site" -l resume -d "Go on with a run that stopped"
complete -c quadrelctl -n "__fish_seen_subcommand_from site" -l commit -d "Commit the documents"
complete -c quadrelctl -n "__fish_seen_subcommand_from site" -l json -d "Print JSON"
