# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh
# What ./run and ./test share: it leaves the packages installed and the build up to date, and says all it says on standard error.

top=$(dirname -- "$(readlink -f -- "$0")")

say() { printf '%s\n' "$*" >&2; }
fail() { say "$@"; exit 1; }

listed_packages() { sed 's/#.*//' "$top/packages.debian" | tr -s '[:space:]' '\n' | sed '/^$/d'; }

is_debian() { (. /etc/os-release && case " $ID ${ID_LIKE-} " in *' debian '*) ;; *) false ;; esac) 2>/dev/null; }

# On Debian and its kin: installs the listed packages that are not there yet.
install_missing_packages() {
    wanted=$(listed_packages)
    # shellcheck disable=SC2086 # one word a package
    present=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null | sed -n 's/^installed //p')
    missing=$(printf '%s\n' "$wanted" | grep -vxF -e "$present" | tr '\n' ' ')
    [ -n "$missing" ] || return 0

    say "Reelsmith is built from source here, which needs these packages that are not installed: $missing"
    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            fail "Only root may install them. Please run as root:  apt-get install --no-install-recommends $missing"
        say 'They are installed with apt-get, through sudo, which may ask for your password.'
        as_root=sudo
    fi
    # shellcheck disable=SC2086
    {
        $as_root apt-get -q update &&
            $as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 \
                install --no-install-recommends $missing
    } >&2 || fail 'The packages could not be installed; apt-get says why above.'
}

# On another distribution: names the packages before the first build, and goes on with the tools there are.
check_build_tools() {
    absent=
    for tool in cmake ninja pkg-config c++; do
        command -v "$tool" >/dev/null || absent="$absent $tool"
    done
    if [ -n "$absent" ] || [ ! -e "$build/build.ninja" ]; then
        say "This is not Debian, so nothing is installed. Debian calls what is needed: $(listed_packages | tr '\n' ' ')"
    fi
    [ -z "$absent" ] || fail "Not found:$absent"
}

# prepare PRESET TARGET: leaves TARGET up to date in the build folder of PRESET, which it names $build.
prepare() {
    build=$top/build/$1
    if is_debian; then install_missing_packages; else check_build_tools; fi
    if [ -z "$(find "$build/build.ninja" -newer "$top/CMakePresets.json" 2>/dev/null)" ]; then
        launcher=
        command -v ccache >/dev/null && launcher=-DCMAKE_CXX_COMPILER_LAUNCHER=ccache
        cmake -S "$top" --preset "$1" $launcher >&2 || fail 'The build could not be configured; the reason stands above.'
    fi
    case $(cmake --build "$build" --target "$2" -- -n) in
    *'no work to do'*) ;;
    *) cmake --build "$build" --target "$2" >&2 || fail 'The build failed; the reason stands above.' ;;
    esac
}
