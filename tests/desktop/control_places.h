// Where the controls of a form stand in its window. The same forms that the program shows are loaded here without a
// screen, and asked.
#pragma once
#include <QPoint>
#include <QRect>
#include <QSize>
#include <memory>
#include <string>

#include "forms/application.h"
#include "forms/scripted_desktop.h"
#include "platform/process.h"

namespace zirvo::window_tests {

class ControlPlaces {
public:
    /// @param screen         pixels, to which the data screens are fitted
    /// @param programFolder  holds no settings, or those to begin with
    ControlPlaces(QSize screen, const std::string& programFolder);

    void Choose(forms::Language language);
    /// Pixels from the corner of the window's client area.
    /// @param control  "Command7", or "Check1(2)"
    QRect PlaceOf(const std::string& form, const std::string& control);

private:
    std::unique_ptr<ProcessService> processes_ = MakeProcessService();  // never asked for one
    forms::ScriptedDesktop desktop_;
    forms::Application application_{desktop_};
};

}  // namespace zirvo::window_tests
