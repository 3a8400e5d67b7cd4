// Pictures: drawings by name, texts that stand in a picture, and maps.
#pragma once
#include <QImage>
#include <QMouseEvent>
#include <QPaintEvent>
#include <functional>
#include <memory>

#include "forms/simple_controls.h"
#include "qt/drawing.h"
#include "qt/widgets/control_binding.h"
#include "qt/widgets/map_pictures.h"

namespace zirvo::widgets {

/// Shows a drawing as large as it fits, a wrapped text, or an image pixel by pixel.
class PictureWidget final : public QWidget {
public:
    explicit PictureWidget(QWidget& parent) : QWidget(&parent) {}

    /// A drawing of the program's resources; "" or one that is not there shows nothing.
    void SetDrawing(const QString& name);
    void SetText(const QString& text);
    void SetImage(const QImage& image);
    void SetBorder(bool border);
    /// Pixels between the border and a text.
    static constexpr int TextMargin = 6;
    std::function<void(int button, int x, int y)> Pressed;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QString drawing_;
    std::unique_ptr<Drawing> shapes_;
    QString text_;
    QImage image_;
    bool border_ = false;
};

class ImageBinding final : public ControlBinding {
public:
    ImageBinding(forms::Image& image, QWidget& parent);

protected:
    void ShowState() override;

private:
    forms::Image& image_;
    PictureWidget& shown_;
};

class PictureBinding final : public ControlBinding {
public:
    PictureBinding(forms::PictureBox& picture, QWidget& parent, const MapPictures& maps);

protected:
    void ShowState() override;
    QRect Place() const override;
    std::optional<TextInBox> TextToFit() const override;

private:
    forms::PictureBox& picture_;
    const MapPictures& maps_;
    PictureWidget& shown_;
};

}  // namespace zirvo::widgets
