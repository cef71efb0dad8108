# Shared by the commands of the project; sourced, not run. Expects the project's root in $root.

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }
die() { say "$*"; exit 1; }

# packages_for STEP...: the packages that the steps need, one a line
packages_for() {
    local steps=" $* " step package
    while read -r step package; do
        case "$step" in '' | '#'*) continue ;; esac
        case "$steps" in *" $step "*) printf '%s\n' "$package" ;; esac
    done < "$root/scripts/debian-packages"
}

# install_packages STEP...: installs what is missing of them; touches no network when nothing is
install_packages() {
    local package missing=() as_root=()
    local installed
    installed=$(dpkg-query --show --showformat='${db:Status-Status} ${Package}\n' 2>/dev/null) \
        || die "cannot ask dpkg-query which packages are installed: this needs Debian 12"
    for package in $(packages_for "$@"); do
        grep -qxF "installed $package" <<< "$installed" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo > /dev/null || die "missing Debian packages: ${missing[*]}; install them as root, or install sudo"
        as_root=(sudo)
    fi
    say "installing Debian packages: ${missing[*]} ..."
    local log
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install --yes --no-install-recommends "${missing[@]}"; } < /dev/null > "$log" 2>&1; then
        tail -n 15 "$log" >&2
        rm -f "$log"
        die "could not install: ${missing[*]}; the last lines of apt-get stand above"
    fi
    rm -f "$log"
}

# build PRESET [TARGET]: configures when needed and builds
build() {
    local preset=$1 target=${2:-all} folder=$root/build/$1 log
    if [ ! -f "$folder/build.ninja" ]; then
        say "configuring the $preset build ..."
        mkdir -p "$folder"
        log=$folder/configure.log
        (cd "$root" && cmake --preset "$preset") > "$log" 2>&1 || { cat "$log" >&2; die "configuring failed"; }
    fi
    # Ninja answers at once whether there is anything to do.
    if ninja -C "$folder" -n "$target" 2> /dev/null | grep -q 'ninja: no work to do'; then
        return 0
    fi
    say "building ($preset) ..."
    log=$folder/build.log
    if ! ninja -C "$folder" "$target" > "$log" 2>&1; then
        grep -vE '^\[[0-9]+/[0-9]+\]' "$log" | head -n 60 >&2
        die "the build failed; all of its output is in $log"
    fi
}
