# shellcheck shell=sh disable=SC2034 # the lists are for the scripts that read this file
# For the other scripts to read in: the packages that each task needs, and a function that installs the
# missing ones, with Debian's or Homebrew's package manager. Messages go to standard error.

PATH=$PATH:/usr/sbin:/sbin # which an ordinary user's path can lack

# Each entry is what shows that a package is installed (a command, a file, or "dpkg/" and its name),
# "=", and the package.
if [ "$(uname)" = Darwin ]; then
  to_build="cmake=cmake pkg-config=pkgconf $(brew --prefix 2>/dev/null || :)/include/ares.h=c-ares
    $(brew --prefix 2>/dev/null || :)/include/nlohmann/json.hpp=nlohmann-json"
  to_sweep=""
  to_test="$(brew --prefix 2>/dev/null || :)/include/gtest/gtest.h=googletest"
  for_lab=""
  to_release=""
  to_gate=""
  to_bench=""
else
  to_build="c++=g++ cmake=cmake make=make pkg-config=pkg-config /usr/include/ares.h=libc-ares-dev
    /usr/include/nlohmann/json.hpp=nlohmann-json3-dev"
  to_sweep="ping=iputils-ping /usr/bin/host=bind9-host"
  to_test="/usr/include/gtest/gtest.h=libgtest-dev strace=strace python3=python3
    avahi-daemon=avahi-daemon nmbd=samba
    zsh=zsh fish=fish /usr/share/bash-completion/bash_completion=bash-completion"
  for_lab="ip=iproute2 dnsmasq=dnsmasq-base"
  to_bench="hyperfine=hyperfine /usr/bin/time=time nmap=nmap arp-scan=arp-scan fping=fping"
  to_release="npm=npm git=git llvm-objdump=llvm qemu-aarch64-static=qemu-user-static
    x86_64-linux-gnu-g++=g++ aarch64-linux-gnu-g++=g++-aarch64-linux-gnu
    arm-linux-gnueabihf-g++=g++-arm-linux-gnueabihf dpkg-source=dpkg-dev rpmbuild=rpm
    /etc/ssl/certs/ca-certificates.crt=ca-certificates"
  for_fresh="debootstrap=debootstrap unshare=util-linux
    /usr/share/keyrings/debian-archive-keyring.gpg=debian-archive-keyring"
  to_gate="clang++=clang clang-format=clang-format clang-tidy=clang-tidy shellcheck=shellcheck
    mandoc=mandoc lintian=lintian dpkg/libc++-dev=libc++-dev
    dpkg/libc++abi-dev=libc++abi-dev dpkg/libclang-rt-dev=libclang-rt-dev"
fi

say() {
  echo "${0##*/}: $*" >&2
}

is_there() {
  case $1 in
    /*) [ -e "$1" ] ;;
    dpkg/*) dpkg-query --show "${1#dpkg/}" >/dev/null 2>&1 ;;
    *) command -v "$1" >/dev/null ;;
  esac
}

# install_missing LIST...: returns when everything is installed, or ends the script with status 1.
install_missing() {
  missing=""
  for need in "$@"; do
    is_there "${need%=*}" || missing="$missing ${need##*=}"
  done
  [ -n "$missing" ] || return 0
  if [ "$(uname)" = Darwin ] && command -v brew >/dev/null; then
    say "installing$missing"
    # shellcheck disable=SC2086 # several words
    brew install $missing >&2 && return
  elif command -v apt-get >/dev/null && { [ "$(id -u)" = 0 ] || command -v sudo >/dev/null; }; then
    say "installing$missing"
    as_root apt-get update -qq >&2 || say "some lists of packages could not be updated"
    # shellcheck disable=SC2086
    as_root apt-get install -qq --no-install-recommends $missing >&2 && return
  fi
  say "please install what these packages contain:$missing"
  exit 1
}

as_root() {
  if [ "$(id -u)" = 0 ]; then
    DEBIAN_FRONTEND=noninteractive "$@"
  else
    sudo DEBIAN_FRONTEND=noninteractive "$@"
  fi
}
