# The completion of hostsweep-network for fish.

function __hostsweep_network_devices
    if test -d /sys/class/net
        string replace -r '.*/(.+)/$' '$1' -- /sys/class/net/*/
    else if command -q ifconfig
        ifconfig -l 2>/dev/null | string split ' '
    end
end

complete -c hostsweep-network -f -a '(__hostsweep_network_devices)' -d 'network device'
complete -c hostsweep-network -s l -l local -d 'sweep the networks that this machine is on'
complete -c hostsweep-network -s u -l up -d 'report only hosts that are up'
complete -c hostsweep-network -l free -d 'report only free addresses'
complete -c hostsweep-network -s f -l format -x -a 'lines table csv json map' -d 'report in this format'
complete -c hostsweep-network -s j -l jobs -x -d 'sweep at most this many addresses at a time'
complete -c hostsweep-network -s n -l no-names -d 'report no names, and ask nobody for one'
complete -c hostsweep-network -l changes -r -F -d 'report only what has changed since the last sweep'
complete -c hostsweep-network -s h -l help -d 'print a summary'
complete -c hostsweep-network -s V -l version -d 'print the version'
