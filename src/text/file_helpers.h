// The file routines that screens and solver runs share. Names are relative to the current folder where no folder is
// given.
#pragma once
#include <string>
#include <string_view>

namespace zirvo {

/// True if a length can be taken: also for a file of zero bytes and for a folder.
bool FileExists(const std::string& path);

/// True if the name ends in the extension (in small letters), in capitals or not, and has something in front of it.
bool HasExtension(const std::string& name, std::string_view extension);

/// True if the path is a folder without the read-only attribute. A path without attributes is the caller's fault 53/76.
/// Has no caller: a folder of the settings is good whether it can be written or not.
bool IsWritableFolder(const std::string& path);

/// The file's text, decoded from code page 932; on any failure the fault's number as text ("53").
std::string ReadWholeFile(const std::string& path);

/// Where a report lies while its stamp is put in front of it. A left-over one stops the next run.
inline constexpr const char* StampTemporaryName = "ZIRVO_SV.TMP";

/// Puts the version stamp in front of a file: renames it to tempName, writes the stamp line and all its lines, each
/// ended by CR LF, under the old name, and deletes tempName. Bytes are kept as they are. The rename's failure (53
/// missing file, 58 tempName is there) goes on to the caller.
void MakeStampedCopy(const std::string& file, const std::string& tempName);

/// Whether the first line of a file is the version stamp, of this version or of another. Faults as a file that cannot
/// be opened.
bool IsStamped(const std::string& file);

/// The comma copy of a report: each line of `source` through ConvertToCsvLine (blank to comma), written to `target`.
void WriteCommaCopy(const std::string& source, const std::string& target);

}  // namespace zirvo
