# shellcheck shell=bash
# The completion of hostsweep-network for bash 4 and later.

# The names of the network devices.
_hostsweep_network_devices() {
  local device
  if [[ -d /sys/class/net ]]; then
    for device in /sys/class/net/*/; do
      device=${device%/}
      printf '%s\n' "${device##*/}"
    done
  else
    ifconfig -l
  fi 2>/dev/null
}

_hostsweep_network() {
  local current=${COMP_WORDS[COMP_CWORD]}
  local previous=${COMP_WORDS[COMP_CWORD - 1]}
  local words
  # bash makes three words of --format=csv.
  if [[ $current == = ]]; then
    current=
  elif [[ $previous == = ]]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  case $previous in
    -f | --format) words="lines table csv json map" ;;
    -j | --jobs) return ;;
    --changes)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -f -- "$current")
      return
      ;;
    *)
      if [[ $current == -* ]]; then
        words="-l --local -u --up --free -f --format -j --jobs -n --no-names --changes -h --help
          -V --version"
      else
        words=$(_hostsweep_network_devices)
      fi
      ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

complete -F _hostsweep_network hostsweep-network
