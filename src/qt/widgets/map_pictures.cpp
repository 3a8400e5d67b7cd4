// Pictures of maps, see map_pictures.h.
#include "qt/widgets/map_pictures.h"

#include <QClipboard>
#include <QGuiApplication>

#include "contour/plot_layout.h"
#include "forms/simple_controls.h"
#include "platform/files.h"
#include "qt/image_surface.h"
#include "qt/picture_files.h"

namespace zirvo::widgets {

class MapPictures::Shown final : public MapPicture {
public:
    Shown(MapPictures& owner, forms::PictureBox& control)
        : owner_(owner),
          control_(control),
          life_(control.Life()),
          surface_(PixelsOfTwips(control.Width), PixelsOfTwips(control.Height)) {
        Present();
    }
    ~Shown() override { owner_.images_.erase(&control_); }

    PlotSurface& Surface() override { return surface_; }

    void Present() override {
        owner_.images_[&control_] = surface_.Image();
        if (!life_.expired() && control_.View() != nullptr) {
            control_.View()->Refresh();
        }
    }

    void SaveBitmap(const std::string& path) override { zirvo::SaveBitmap(surface_.Image(), path); }
    void Save(const std::string& path, MapFileFormat format, const std::string& title,
              const std::function<void(PlotSurface&)>& draw) override {
        WriteWholeFile(path, BytesOf(format, title, draw));
    }
    void Copy() override { QGuiApplication::clipboard()->setImage(surface_.Image()); }

private:
    std::string BytesOf(MapFileFormat format, const std::string& title, const DrawPicture& draw) const {
        const QImage& image = surface_.Image();
        switch (format) {
            case MapFileFormat::Svg:
                return SvgBytes(image.width(), image.height(), title, draw);
            case MapFileFormat::Pdf:
                return PdfBytes(image.width(), image.height(), title, draw);
            case MapFileFormat::Png:
                return PngBytes(image);
            case MapFileFormat::Bitmap:
                break;
        }
        return BitmapBytes(image);
    }

    MapPictures& owner_;
    forms::PictureBox& control_;
    std::weak_ptr<const void> life_;
    ImageSurface surface_;
};

std::unique_ptr<MapPicture> MapPictures::Make(forms::PictureBox& control) {
    return std::make_unique<Shown>(*this, control);
}

const QImage* MapPictures::ImageOf(const forms::PictureBox& control) const {
    const auto found = images_.find(&control);
    return found == images_.end() ? nullptr : &found->second;
}

}  // namespace zirvo::widgets
