#compdef keyscout
# Completion of the keyscout program for zsh.

local -a common names
common=('(-h --help)'{-h,--help}'[say how it is used]' '--version[tell the version]')
names=('--index[the index file]:name of the index file:'
       '--download[the download file]:name of the download file:')

_arguments -C $common '1: :->command' '*:: :->arguments'
case $state in
  command)
    local -a commands
    commands=(
      'check:report what is wrong with a data directory'
      'help:say how the program or a command is used'
      'lookup:print the list that the control shows for a text'
      'pack:make a data directory from a catalog download or a CSV list'
      'play:replay a scripted session'
      'try:try lookups in a form on the terminal')
    _describe command commands
    ;;
  arguments)
    case $words[1] in
      check)
        _arguments $common $names '--json[print one JSON object]' '1:data directory:_directories'
        ;;
      help) _values command check lookup pack play try ;;
      lookup)
        _arguments $common $names '--json[print one JSON object]' \
          '--brand[list one brand only]:brand:' \
          '*--authorized[a brand that may be listed]:brand:' \
          '--count[walk down to so many entries]:number of entries:' \
          '1:data directory:_directories' '2:text:'
        ;;
      pack)
        _arguments $common \
          '--index[the index file, or with --csv the column of the indexes]:name:' \
          '--index-file[the index file]:name of the index file:' \
          '--download[the download in the directory]:name of the download file:' \
          '--lines[lines of a table]:number of lines:' \
          '--code-page[the code page of the list]:code page:' \
          '--force[pack into a directory that holds other files]' \
          '--dry-run[tell what would be made and write nothing]' \
          '--json[print one JSON object]' '--quiet[print nothing but failures]' \
          '--csv[pack a CSV list]:list:_files' \
          '--number[the column of the catalog numbers]:column:' \
          '--brand[the column of the brands]:column:' \
          '--delimiter[what stands between columns]:delimiter:(comma semicolon tab)' \
          '--no-header[the first line is a record]' \
          '--upper-case[turn the numbers into capitals]' \
          '--duplicates[numbers that stand twice]:policy:(refuse first)' \
          '1:download:_files' '2:data directory:_directories'
        ;;
      play)
        _arguments $common '--view[show the session as a person would see it]' \
          '--line-numbers[tell in each answer which line it answers]' \
          '--widgets[the widgets to play on]:widgets:(memory win32)' '1:script:_files'
        ;;
      try) _arguments $common $names '1:data directory:_directories' ;;
    esac
    ;;
esac
