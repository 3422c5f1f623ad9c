# Completion of the keyscout program for fish.

function __keyscout_option
    complete -c keyscout -n "__fish_seen_subcommand_from $argv[1]" $argv[2..]
end

complete -c keyscout -f
complete -c keyscout -s h -l help -d 'Say how it is used'
complete -c keyscout -l version -d 'Tell the version'

set -l none 'not __fish_seen_subcommand_from check help lookup pack play try'
complete -c keyscout -n $none -a check -d 'Report what is wrong with a data directory'
complete -c keyscout -n $none -a help -d 'Say how the program or a command is used'
complete -c keyscout -n $none -a lookup -d 'Print the list that the control shows for a text'
complete -c keyscout -n $none -a pack -d 'Make a data directory from a catalog download'
complete -c keyscout -n $none -a play -d 'Replay a scripted session'
complete -c keyscout -n $none -a try -d 'Try lookups in a form on the terminal'

for command in check lookup try
    __keyscout_option $command -a '(__fish_complete_directories)'
    __keyscout_option $command -l index -x -d 'Name of the index file'
    __keyscout_option $command -l download -x -d 'Name of the download file'
end
for command in check lookup
    __keyscout_option $command -l json -d 'Print one JSON object'
end

__keyscout_option help -a 'check lookup pack play try'

__keyscout_option lookup -l brand -x -d 'List one brand only'
__keyscout_option lookup -l authorized -x -d 'A brand that may be listed'
__keyscout_option lookup -l count -x -d 'Walk down to so many entries'

__keyscout_option pack -F
__keyscout_option pack -l index -x -d 'Name of the index file'
__keyscout_option pack -l lines -x -d 'Lines of a table'

__keyscout_option play -F
__keyscout_option play -l view -d 'Show the session as a person would see it'
__keyscout_option play -l line-numbers -d 'Tell in each answer which line it answers'
__keyscout_option play -l widgets -x -a 'memory win32' -d 'The widgets to play on'

functions -e __keyscout_option
