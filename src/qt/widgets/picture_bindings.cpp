// Pictures, see picture_bindings.h.
#include "qt/widgets/picture_bindings.h"

#include <QFile>
#include <QPainter>

#include "contour/plot_layout.h"
#include "qt/widgets/label_bindings.h"
#include "qt/widgets/pixels.h"

namespace zirvo::widgets {

void PictureWidget::SetDrawing(const QString& name) {
    if (name == drawing_) {
        return;
    }
    drawing_ = name;
    shapes_.reset();
    QFile file(QStringLiteral(":/pictures/%1.svg").arg(name));
    if (!name.isEmpty() && file.open(QIODevice::ReadOnly)) {
        shapes_ = std::make_unique<Drawing>(file.readAll());
    }
    update();
}

void PictureWidget::SetText(const QString& text) {
    if (text != text_) {
        text_ = text;
        setAccessibleDescription(text);
        update();
    }
}

void PictureWidget::SetImage(const QImage& image) {
    if (image.cacheKey() != image_.cacheKey()) {
        image_ = image;
        update();
    }
}

void PictureWidget::SetBorder(bool border) {
    if (border != border_) {
        border_ = border;
        update();
    }
}

void PictureWidget::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event)
    QPainter painter(this);
    if (!image_.isNull()) {
        painter.drawImage(0, 0, image_);
        return;
    }
    const QRect inside = border_ ? rect().adjusted(1, 1, -1, -1) : rect();
    if (autoFillBackground()) {
        painter.fillRect(inside, palette().color(QPalette::Window));
    }
    if (shapes_ != nullptr) {
        shapes_->Paint(painter, inside);
    }
    if (!text_.isEmpty()) {
        constexpr int margin = TextMargin;
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(inside.adjusted(margin, margin, -margin, -margin),
                         Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text_);
    }
    if (border_) {
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    int button = 0;
    switch (event->button()) {
        case Qt::LeftButton:
            button = 1;
            break;
        case Qt::RightButton:
            button = 2;
            break;
        case Qt::MiddleButton:
            button = 4;
            break;
        default:
            return;
    }
    if (Pressed) {
        const QPoint at = event->position().toPoint();
        Pressed(button, at.x(), at.y());
    }
}

ImageBinding::ImageBinding(forms::Image& image, QWidget& parent)
    : ControlBinding(image, *new PictureWidget(parent)), image_(image), shown_(static_cast<PictureWidget&>(Widget())) {}

void ImageBinding::ShowState() {
    shown_.SetDrawing(ToQt(image_.Picture.Get()));
}

PictureBinding::PictureBinding(forms::PictureBox& picture, QWidget& parent, const MapPictures& maps)
    : ControlBinding(picture, *new PictureWidget(parent)),
      picture_(picture),
      maps_(maps),
      shown_(static_cast<PictureWidget&>(Widget())) {
    shown_.Pressed = [this](int button, int x, int y) {
        Act([this, button, x, y] { picture_.UserMouseDown(button, x, y); });
    };
}

QRect PictureBinding::Place() const {
    // As large as the map, whose pixels count from its own corner.
    return {PixelEdge(picture_.Left), PixelEdge(picture_.Top), PixelsOfTwips(picture_.Width),
            PixelsOfTwips(picture_.Height)};
}

std::optional<TextInBox> PictureBinding::TextToFit() const {
    constexpr int edges = 2 * (PictureWidget::TextMargin + 1);
    return TextInBox{.Text = ToQt(picture_.Text.Get()), .Room = Place().size() - QSize(edges, edges), .Wrapped = true};
}

void PictureBinding::ShowState() {
    const QImage* map = maps_.ImageOf(picture_);
    shown_.SetImage(map == nullptr ? QImage() : *map);
    shown_.SetDrawing(ToQt(picture_.Picture.Get()));
    shown_.SetText(ToQt(picture_.Text.Get()));
    shown_.SetBorder(map == nullptr);
    if (picture_.BackColor.Get() != forms::DefaultColor) {
        QPalette palette = shown_.palette();
        palette.setColor(QPalette::Window, ToQt(picture_.BackColor, palette.color(QPalette::Window)));
        shown_.setPalette(palette);
        shown_.setAutoFillBackground(true);
    }
}

}  // namespace zirvo::widgets
