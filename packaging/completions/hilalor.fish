set -l answers title day next month convert qibla
complete -c hilalor -f
complete -c hilalor -n __fish_use_subcommand -l help -d 'List the commands'
complete -c hilalor -n __fish_use_subcommand -l version -d 'Tell the version'
complete -c hilalor -n __fish_use_subcommand -l diagnose -d 'Tell what is found here'
complete -c hilalor -n __fish_use_subcommand -a title -d 'What the item in the bar says'
complete -c hilalor -n __fish_use_subcommand -a day -d 'The prayer times of a day'
complete -c hilalor -n __fish_use_subcommand -a next -d 'The next prayer'
complete -c hilalor -n __fish_use_subcommand -a month -d 'A month of either calendar'
complete -c hilalor -n __fish_use_subcommand -a convert -d 'A date in the other calendar'
complete -c hilalor -n __fish_use_subcommand -a qibla -d 'The direction of prayer'
complete -c hilalor -n __fish_use_subcommand -a panel -d 'Open the panel of the running copy'
complete -c hilalor -n __fish_use_subcommand -a settings -d 'Open the settings of the running copy'
complete -c hilalor -n __fish_use_subcommand -a quit -d 'End the running copy'
complete -c hilalor -n '__fish_seen_subcommand_from day month convert' -a hijri
complete -c hilalor -n '__fish_seen_subcommand_from title next' -l waybar -d 'For a module of Waybar'
complete -c hilalor -n '__fish_seen_subcommand_from title' -l follow -d 'Go on with each change'
complete -c hilalor -n "__fish_seen_subcommand_from $answers" -l json -d 'One line of JSON'
complete -c hilalor -n "__fish_seen_subcommand_from $answers" -x -l place -d 'Another place: LAT,LON'
complete -c hilalor -n "__fish_seen_subcommand_from $answers" -x -l zone -d 'Its time zone' \
  -a "(string match -rv '^#' </usr/share/zoneinfo/zone.tab | string split -f 3 \t)"
complete -c hilalor -n "__fish_seen_subcommand_from $answers" -x -l method -d 'By another method' \
  -a 'ummAlQura muslimWorldLeague egyptian karachi dubai moonsightingCommittee northAmerica kuwait qatar singapore tehran turkey'
