#compdef hostsweep-network
# The completion of hostsweep-network for zsh.

_hostsweep_network_devices() {
  local -a devices expl
  if [[ -d /sys/class/net ]]; then
    devices=(/sys/class/net/*(-/N:t))
  else
    devices=($(ifconfig -l 2>/dev/null))
  fi
  _wanted devices expl 'network device' compadd -a devices
}

_hostsweep_network_formats() {
  local -a formats=(
    'lines:address=name=hardware address, a line for each address'
    'table:columns, for addresses with a host, a name or a hardware address'
    'csv:comma-separated values'
    'json:an object for each address, on a line of its own'
    'map:a character for each address'
  )
  _describe format formats
}

_arguments -s -S \
  '(-l --local *)'{-l,--local}'[sweep the networks that this machine is on]' \
  '(-u --up --free --changes)'{-u,--up}'[report only hosts that are up]' \
  '(-u --up --free --changes)--free[report only free addresses]' \
  '(-f --format)'{-f+,--format=}'[report in this format]:format:_hostsweep_network_formats' \
  '(-j --jobs)'{-j+,--jobs=}'[sweep at most this many addresses at a time]:count, 1 to 1024: ' \
  '(-n --no-names)'{-n,--no-names}'[report no names, and ask nobody for one]' \
  '(-u --up --free --changes)--changes=[report only what has changed since the last sweep]:file:_files' \
  '(- *)'{-h,--help}'[print a summary]' \
  '(- *)'{-V,--version}'[print the version]' \
  '(-l --local)*:network:_hostsweep_network_devices'
