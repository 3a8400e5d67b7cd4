// Qt without a display, for programs that only draw pictures. Callers: the batch tool, tests, benchmarks.
#pragma once
#include <QGuiApplication>
#include <memory>

namespace zirvo {

/// Starts Qt without a display, whatever the environment asks for; ends it when it is destroyed. Qt says nothing of its
/// own on standard error meanwhile, except why it cannot go on at all, and its hashes have the same order in every run,
/// so that drawings have the same bytes. The program's own fonts are registered.
class OffscreenQt {
public:
    OffscreenQt();
    ~OffscreenQt();
    OffscreenQt(const OffscreenQt&) = delete;
    OffscreenQt& operator=(const OffscreenQt&) = delete;

private:
    QtMessageHandler earlier_;
    std::unique_ptr<QGuiApplication> application_;
};

}  // namespace zirvo
