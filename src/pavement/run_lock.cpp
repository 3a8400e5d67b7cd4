// One run at a time in a folder, see run_lock.h.
#include "pavement/run_lock.h"

#include "platform/fault_subject.h"
#include "text/catalogue.h"

namespace zirvo {

RunLock::RunLock() {
    const NotInterrupted untilItIsNoted;
    lock_ = FileLock::OfAnyFile(FullPath(RunLockName), busy_);  // a full path: the current folder may change meanwhile
}

RunLock::~RunLock() {
    const NotInterrupted untilItIsGone;
    Release();
}

void RunLock::Release() {
    if (lock_ != nullptr) {
        lock_->RemoveFile();
        lock_.reset();
    }
}

std::string FolderBusyText(Int16 languageBase) {
    return languageBase == JapaneseBase
               ? "このフォルダでは別の ZIRVO が計算中です。\n終了後にもう一度実行してください。"
               : "ANOTHER ZIRVO IS COMPUTING IN THIS FOLDER.\nPLEASE TRY AGAIN WHEN IT HAS FINISHED.";
}

std::string ReportReplacedText(Int16 languageBase) {
    return languageBase == JapaneseBase
               ? "このフォルダの結果は別の解析のものに置き換わっています。\nもう一度解析を開始してください。"
               : "THE RESULTS IN THIS FOLDER ARE THOSE OF ANOTHER RUN BY NOW.\nPLEASE START THE ANALYSIS AGAIN.";
}

}  // namespace zirvo
