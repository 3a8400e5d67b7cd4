# Parts that all packages have. Sourced by ./package.

# put_programs BUILD TO [SUFFIX]: the programs' folder of a build, without what only tests put there.
put_programs() {
    local build=$1 to=$2 suffix=${3:-}
    mkdir -p "$to"
    cp "$build/bin/zirvo$suffix" "$build/bin/zirvo-batch$suffix" "$build/bin/ZIRVO_SV12.EXE" "$build/bin/ZIRVO_SV22.exe" "$to"
    cp -r "$build/bin/fonts" "$build/bin/samples" "$build/bin/images" "$to"
    cp "$build"/bin/ZIRVO?.html "$to"
}

# put_words TO: what comes with every copy to be read.
put_words() {
    mkdir -p "$1/translations"
    cp README.md LICENSE "$1"
    cp /usr/share/qt6/translations/qtbase_ja.qm "$1/translations"
}

# put_licence PACKAGE TO: the licence of a package of Debian, and the texts that it names, as they are on this machine.
put_licence() {
    local text=/usr/share/doc/$1/copyright common
    [ -f "$text" ] || { echo "package: $text is missing" >&2 && return 1; }
    mkdir -p "$2"
    cp -L "$text" "$2/$1.txt"
    for common in $(grep -oE '/usr/share/common-licenses/[A-Za-z0-9.+-]*[A-Za-z0-9]' "$text" | sort -u); do
        if [ -f "$common" ]; then
            cp -L "$common" "$2/"
        fi
    done
}

# same_times FOLDER: the time of the commit for every file, and the same rights whatever the clone's are.
same_times() {
    chmod -R u=rwX,go=rX "$1"
    find "$1" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +
}
