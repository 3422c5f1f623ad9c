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
complete -c keyscout -n $none -a pack -d 'Make a data directory from a catalog download or a CSV list'
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
__keyscout_option pack -l index -x -d 'Name of the index file, or column of the indexes'
__keyscout_option pack -l index-file -x -d 'Name of the index file'
__keyscout_option pack -l download -x -d 'Name of the download in the directory'
__keyscout_option pack -l lines -x -d 'Lines of a table'
__keyscout_option pack -l code-page -x -d 'Code page of the list'
__keyscout_option pack -l force -d 'Pack into a directory that holds other files'
__keyscout_option pack -l dry-run -d 'Tell what would be made and write nothing'
__keyscout_option pack -l json -d 'Print one JSON object'
__keyscout_option pack -l quiet -d 'Print nothing but failures'
__keyscout_option pack -l csv -r -F -d 'Pack a CSV list'
__keyscout_option pack -l number -x -d 'Column of the catalog numbers'
__keyscout_option pack -l brand -x -d 'Column of the brands'
__keyscout_option pack -l delimiter -x -a 'comma semicolon tab' -d 'What stands between columns'
__keyscout_option pack -l no-header -d 'The first line is a record'
__keyscout_option pack -l upper-case -d 'Turn the numbers into capitals'
__keyscout_option pack -l duplicates -x -a 'refuse first' -d 'What becomes of numbers that stand twice'

__keyscout_option play -F
__keyscout_option play -l view -d 'Show the session as a person would see it'
__keyscout_option play -l line-numbers -d 'Tell in each answer which line it answers'
__keyscout_option play -l widgets -x -a 'memory win32' -d 'The widgets to play on'

functions -e __keyscout_option
