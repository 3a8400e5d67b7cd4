# The programs' folder for Windows, with Qt and what it needs. Sourced by ./package.
windows_folder=$stage/windows
put_programs build-windows "$windows_folder" .exe
put_words "$windows_folder"
cp build-windows/bin/*.dll build-windows/bin/qt.conf "$windows_folder"
cp -r build-windows/bin/plugins "$windows_folder"
cp "$icons/eva.ico" "$icons/ven.ico" "$windows_folder"
find "$windows_folder" \( -iname '*.exe' -o -name '*.dll' \) -exec x86_64-w64-mingw32-strip {} +

# Qt is Debian's source, built by a script of ours; the other libraries come with the compiler.
licences=$windows_folder/licences
mkdir -p "$licences/qt-build"
cp scripts/windows-qt cmake/mingw_compiler.cmake "$licences/qt-build"
cp -r "$(scripts/windows-qt --find)/LICENSES" "$licences/qt"
for package in libqt6core6 gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev; do
    put_licence "$package" "$licences"
done
{
    cat packaging/LICENCES.txt
    echo
    echo "Qt6*.dll and plugins/: Qt $(sed -nE 's/^version=//p' scripts/windows-qt), Debian's source package qt6-base, built as"
    echo "qt-build/windows-qt has it; libqt6core6.txt and qt/ are its licences and those of the libraries that are in it."
    echo "libstdc++-6.dll and libgcc_s_seh-1.dll: GNU General Public License 3 with the GCC Runtime Library Exception;"
    echo "libwinpthread-1.dll: its licence stands in mingw-w64-x86-64-dev.txt. Debian 12:"
    dpkg-query -W -f '  ${binary:Package} ${Version}, source ${source:Package} ${source:Version}\n' \
        gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev
} >"$licences/README.txt"
same_times "$windows_folder"
