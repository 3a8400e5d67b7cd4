# The installer for Windows: packaging/windows/installer.nsi with the list of files. Sourced by ./package.
lists=$stage/installer
mkdir -p "$lists"

# What a later version needs to know of this one: the names of its files, in a file that the uninstaller removes too.
names=installed-files.txt
(cd "$windows_folder" && find . -type f -printf '%P\n' | sort | tr / '\\') | sed 's/$/\r/' >"$lists/$names"
if LC_ALL=C grep -q '[^ -~[:cntrl:]]' "$lists/$names"; then
    echo "package: the installer reads its list as ASCII" >&2 && exit 1
fi
touch --date="@$SOURCE_DATE_EPOCH" "$lists/$names"

# What is put and removed, one line for each file; samples are the user's once they have been changed.
: >"$lists/put.nsh"
: >"$lists/remove.nsh"
: >"$lists/folders.nsh"
while read -r file; do
    folder=$(dirname "$file" | tr / '\\')
    windows_name=$(tr / '\\' <<<"$file")
    case "$file" in
        samples/*) kind=Sample ;;
        *) kind=File ;;
    esac
    printf '!insertmacro Put%s "%s" "%s" "%s"\n' "$kind" "$windows_folder/$file" "$folder" "$windows_name" >>"$lists/put.nsh"
    printf '!insertmacro Remove%s "%s"\n' "$kind" "$windows_name" >>"$lists/remove.nsh"
done < <(cd "$windows_folder" && find . -type f -printf '%P\n' | sed 's/^samples/0&/' | sort | sed 's/^0//') # samples first
(cd "$windows_folder" && find . -mindepth 1 -type d -printf '%P\n' | sort -r | tr / '\\') |
    sed 's/.*/RMDir "$INSTDIR\\&"/' >"$lists/folders.nsh"

compressor="/SOLID lzma"
[ "$level" = 9 ] || compressor=zlib
name=zirvo-$version-windows-x86_64-setup.exe
cp "$icons/zirvo.ico" "$lists"
makensis -V2 -NOCD "-DVERSION=$version" "-DLISTS=$lists" "-DCOMPRESSOR=$compressor" "-DOUT=$PWD/dist/$name" \
    "-DSIZE=$(du --summarize --apparent-size --block-size=1024 "$windows_folder" | cut -f 1)" \
    packaging/windows/installer.nsi
