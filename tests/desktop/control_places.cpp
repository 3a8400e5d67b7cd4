// Places of controls, see control_places.h.
#include "desktop/control_places.h"

#include <memory>
#include <stdexcept>

#include "analysis/form3.h"
#include "analysis/form4.h"
#include "contour/recording_surface.h"
#include "graphics/form5.h"
#include "graphics/form6.h"
#include "qt/widgets/pixels.h"
#include "shell/form1.h"
#include "shell/form2.h"
#include "shell/form7.h"

namespace zirvo::window_tests {
namespace {

/// A picture that only has its size.
class UnseenPicture : public MapPicture {
public:
    explicit UnseenPicture(const forms::PictureBox& control)
        : surface_(PixelsOfTwips(control.Width), PixelsOfTwips(control.Height)) {}
    PlotSurface& Surface() override { return surface_; }
    void Present() override {}
    void SaveBitmap(const std::string& /*path*/) override {}
    void Save(const std::string& /*path*/, MapFileFormat /*format*/, const std::string& /*title*/,
              const std::function<void(PlotSurface&)>& /*draw*/) override {}
    void Copy() override {}

private:
    RecordingSurface surface_;
};

}  // namespace

ControlPlaces::ControlPlaces(QSize screen, const std::string& programFolder) {
    desktop_.Size = {.Width = screen.width() * 15.0, .Height = screen.height() * 15.0, .TwipsPerPixel = 15};
    application_.Register(Form1::FormName, [](forms::Application& owner) { return std::make_unique<Form1>(owner); });
    application_.Register(Form2::FormName, [programFolder](forms::Application& owner) {
        return std::make_unique<Form2>(owner, programFolder);
    });
    application_.Register(Form3::FormName, [this, programFolder](forms::Application& owner) {
        return std::make_unique<Form3>(owner, *processes_, programFolder);
    });
    application_.Register(Form4::FormName, [](forms::Application& owner) { return std::make_unique<Form4>(owner); });
    application_.Register(Form5::FormName, [](forms::Application& owner) { return std::make_unique<Form5>(owner); });
    application_.Register(Form6::FormName, [](forms::Application& owner) {
        return std::make_unique<Form6>(
            owner, [](forms::PictureBox& control) { return std::make_unique<UnseenPicture>(control); });
    });
    application_.Register(Form7::FormName, [](forms::Application& owner) { return std::make_unique<Form7>(owner); });
}

void ControlPlaces::Choose(forms::Language language) {
    auto& form = application_.Get<Form1>();
    (language == forms::Language::Japanese ? form.Option1 : form.Option2).Value = true;
}

QRect ControlPlaces::PlaceOf(const std::string& form, const std::string& control) {
    std::string name = control;
    int index = -1;
    if (const auto bracket = control.find('('); bracket != std::string::npos) {
        name = control.substr(0, bracket);
        index = std::stoi(control.substr(bracket + 1));
    }
    const forms::Control* found = application_.Load(form).Controls.Find(name, index);
    if (found == nullptr) {
        throw std::runtime_error("no " + control + " on " + form);
    }
    QRect place = widgets::PixelRect(found->Left, found->Top, found->Width, found->Height);
    for (const forms::Control* around = found->Container(); around != nullptr; around = around->Container()) {
        place.translate(widgets::PixelEdge(around->Left), widgets::PixelEdge(around->Top));
    }
    return place;
}

}  // namespace zirvo::window_tests
