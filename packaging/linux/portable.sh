# The portable folder for Linux: the programs, Qt and every library below it but the C library. Sourced by ./package.
name=zirvo-$version-linux-$(uname -m)
folder=$stage/$name
put_programs build "$folder"
put_words "$folder"
strip "$folder"/zirvo "$folder"/zirvo-batch "$folder"/ZIRVO_SV12.EXE "$folder"/ZIRVO_SV22.exe

plugins=/usr/lib/$(uname -m)-linux-gnu/qt6/plugins
mkdir -p "$folder/plugins/platforms" "$folder/plugins/platforminputcontexts" "$folder/lib" "$folder/licences"
cp "$plugins"/platforms/libqxcb.so "$plugins"/platforms/libqoffscreen.so "$folder/plugins/platforms"
cp "$plugins"/platforminputcontexts/*.so "$folder/plugins/platforminputcontexts"
printf '[Paths]\nPrefix=.\nPlugins=plugins\nTranslations=translations\n' >"$folder/qt.conf"

# package_of FILE: the package that a library came in; the database may know its path without the leading /usr.
package_of() {
    local real
    real=$(readlink -f "$1")
    { dpkg-query --search "$real" "${real#/usr}" 2>/dev/null || true; } | head -1 | cut -d: -f1
}

# The C library and what belongs to it is the machine's own: an older one than that of Debian 12 would not do.
packages=()
while read -r library; do
    cp -L "$library" "$folder/lib"
    packages+=("$(package_of "$library")")
done < <(ldd "$folder"/zirvo "$folder"/zirvo-batch "$folder"/plugins/*/*.so | sed -nE 's/.* => (\/[^ ]+) .*/\1/p' |
    grep -vE '/(libc|libm|libdl|librt|libpthread|libresolv|ld-linux[^/]*)\.so' | sort -u)

# The programs look in lib/ first, and so does whatever they load: the old kind of search path counts for that too.
for program in zirvo zirvo-batch ZIRVO_SV12.EXE ZIRVO_SV22.exe; do
    patchelf --force-rpath --set-rpath '$ORIGIN/lib' "$folder/$program"
done

mapfile -t packages < <(printf '%s\n' "${packages[@]}" | sort -u)
for package in "${packages[@]}"; do
    put_licence "$package" "$folder/licences"
done
{
    cat packaging/LICENCES.txt
    echo
    echo "Libraries in lib/ and plugins/, of Debian 12:"
    dpkg-query -W -f '  ${binary:Package} ${Version}, source ${source:Package} ${source:Version}\n' "${packages[@]}"
} >"$folder/licences/README.txt"

same_times "$folder"
tar --create --sort=name --owner=0 --group=0 --numeric-owner --mtime="@$SOURCE_DATE_EPOCH" --directory "$stage" "$name" |
    gzip "-$level" --no-name >"dist/$name.tar.gz"
