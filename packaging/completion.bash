# Completion for ferolin and ferolin-host; the program itself says which options it has.
_ferolin() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  case $previous in
    --port)
      mapfile -t COMPREPLY < <(compgen -W "auto $(compgen -G '/dev/tty[AU]*' ) $(compgen -G '/dev/serial/by-id/*')" -- "$word")
      ;;
    --nmea | --web-tls | --shot | --contact-sheet | --mqtt-password-file | --mqtt-tls | --gpx | --csv | --geojson)
      mapfile -t COMPREPLY < <(compgen -f -- "$word")
      ;;
    --home | --frames | --kml)
      mapfile -t COMPREPLY < <(compgen -d -- "$word")
      ;;
    --lang)
      mapfile -t COMPREPLY < <(compgen -W "en ru" -- "$word")
      ;;
    *)
      mapfile -t COMPREPLY < <(compgen -W "drives export $("$1" --help 2>/dev/null | grep -oE -- '--[a-z][a-z-]+' | sort -u)" -- "$word")
      ;;
  esac
}
complete -o filenames -F _ferolin ferolin ferolin-host
