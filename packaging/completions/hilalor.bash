_hilalor() {
  local word=$2 before=$3 verb=${COMP_WORDS[1]}
  local methods="ummAlQura muslimWorldLeague egyptian karachi dubai moonsightingCommittee northAmerica
    kuwait qatar singapore tehran turkey"
  local options="--json --place --zone --method"
  if [ "$COMP_CWORD" -eq 1 ]; then
    options="title day next month convert qibla panel settings quit --help --version --diagnose"
  elif [ "$before" = --method ]; then
    options=$methods
  elif [ "$before" = --zone ]; then
    options=$(awk '!/^#/ {print $3}' /usr/share/zoneinfo/zone.tab 2>/dev/null)
  elif [ "$before" = --place ]; then
    options=
  else
    case $verb in
      title) options+=" --waybar --follow" ;;
      next) options+=" --waybar" ;;
      day | month | convert) options+=" hijri" ;;
      qibla) ;;
      *) options= ;;
    esac
  fi
  mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
}
complete -F _hilalor hilalor
