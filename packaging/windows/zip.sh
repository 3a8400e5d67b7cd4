# The portable folder for Windows. Sourced by ./package.
name=zirvo-$version-windows-x86_64
mv "$windows_folder" "$stage/$name"
rm -f "dist/$name.zip"
(cd "$stage" && find "$name" | sort | zip -X "-$level" --quiet --names-stdin "$OLDPWD/dist/$name.zip")
mv "$stage/$name" "$windows_folder"
