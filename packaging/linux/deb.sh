# The package for Debian 12. The programs' folder is /usr/lib/zirvo; two links in /usr/bin. Sourced by ./package.
root=$stage/deb
put_programs build "$root/usr/lib/zirvo"
strip "$root"/usr/lib/zirvo/{zirvo,zirvo-batch,ZIRVO_SV12.EXE,ZIRVO_SV22.exe}
mkdir -p "$root"/usr/{bin,share/{applications,metainfo,mime/packages,man/man1,doc/zirvo}} "$root/DEBIAN"
ln -s ../lib/zirvo/zirvo ../lib/zirvo/zirvo-batch "$root/usr/bin"
cp packaging/linux/zirvo.desktop "$root/usr/share/applications"
cp packaging/linux/org.zirvo.zirvo.metainfo.xml "$root/usr/share/metainfo"
cp packaging/linux/zirvo-mime.xml "$root/usr/share/mime/packages/zirvo.xml"
for page in zirvo zirvo-batch; do
    gzip -9 --no-name --stdout "packaging/linux/$page.1" >"$root/usr/share/man/man1/$page.1.gz"
done

# The licences of the fonts stand in the copyright file; a package has no copies of the texts that every Debian has.
mv "$root/usr/lib/zirvo/samples" "$root/usr/share/doc/zirvo/examples"
ln -s ../../share/doc/zirvo/examples "$root/usr/lib/zirvo/samples"
rm "$root"/usr/lib/zirvo/fonts/GPL-2.txt
{
    cat LICENSE
    for font in IPA Liberation; do
        printf '\n\nFonts in /usr/lib/zirvo/fonts (%s):\n\n' "$font"
        cat "$root/usr/lib/zirvo/fonts/LICENCE-$font.txt"
    done
} >"$root/usr/share/doc/zirvo/copyright"
rm "$root"/usr/lib/zirvo/fonts/LICENCE-*.txt
gzip -9 --no-name --stdout README.md >"$root/usr/share/doc/zirvo/README.md.gz"
day=$(date --utc --rfc-email --date="@$SOURCE_DATE_EPOCH")
printf 'zirvo (%s) bookworm; urgency=medium\n\n  * Version %s.\n\n -- the ZIRVO developers <zirvo@localhost>  %s\n' \
    "$version" "$version" "$day" | gzip -9 --no-name >"$root/usr/share/doc/zirvo/changelog.gz"

for size in 16 22 24 32 48 64 128 256 512; do
    hicolor=$root/usr/share/icons/hicolor/${size}x$size
    mkdir -p "$hicolor/apps" "$hicolor/mimetypes"
    cp "$icons/zirvo-$size.png" "$hicolor/apps/zirvo.png"
    cp "$icons/eva-$size.png" "$hicolor/mimetypes/application-x-zirvo-analysis.png"
    cp "$icons/ven-$size.png" "$hicolor/mimetypes/application-x-zirvo-graphics.png"
done
mkdir -p "$root/usr/share/icons/hicolor/scalable/apps"
cp packaging/icons/zirvo.svg "$root/usr/share/icons/hicolor/scalable/apps"

# The project has no mail address of its own, and the fonts lie here so that pictures have the same pixels everywhere.
mkdir -p "$root/usr/share/lintian/overrides"
printf 'zirvo: %s\n' 'bogus-mail-host *' 'bogus-mail-host-in-debian-changelog *' 'duplicate-font-file *' 'font-in-non-font-package *' \
    >"$root/usr/share/lintian/overrides/zirvo"

# What the programs need is read from them; the tool wants to be where a file debian/control is.
mkdir -p "$stage/debian"
printf 'Source: zirvo\n\nPackage: zirvo\nArchitecture: any\n' >"$stage/debian/control"
depends=$(cd "$stage" && dpkg-shlibdeps -O deb/usr/lib/zirvo/{zirvo,zirvo-batch,ZIRVO_SV12.EXE,ZIRVO_SV22.exe})
cat >"$root/DEBIAN/control" <<END
Package: zirvo
Version: $version
Architecture: $(dpkg --print-architecture)
Maintainer: the ZIRVO developers <zirvo@localhost>
Installed-Size: $(du --summarize --apparent-size --block-size=1024 "$root/usr" | cut -f 1)
Depends: ${depends#shlibs:Depends=}
Recommends: qt6-translations-l10n
Section: science
Priority: optional
Description: structural analysis of road and runway pavements
 ZIRVO computes stresses, strains and deflections in elastic layers with full
 bond or slip between them, under vertical and horizontal loads. Reports in
 Japanese or English come out, and contour maps of the strains on a section.
 zirvo-batch does the same work without a screen.
END
(cd "$root" && find usr -type f -print0 | sort -z | xargs -0 md5sum) >"$root/DEBIAN/md5sums"
find "$root" -type f -exec chmod 644 {} +
chmod 755 "$root"/usr/lib/zirvo/{zirvo,zirvo-batch,ZIRVO_SV12.EXE,ZIRVO_SV22.exe}
same_times "$root"
dpkg-deb --root-owner-group -Zxz "-z$level" --build "$root" "dist/zirvo_${version}_$(dpkg --print-architecture).deb"
