#pragma once

#include "ui/ResourceImage.h"
#include "ui/model/DetailPage.h"

#include <QWidget>

/// A picture in a frame with continuous corners, as wide as the column up to a limit. Hidden, and without
/// room, when there is no picture that can be read.
class ScreenshotView : public QWidget {
    Q_OBJECT

public:
    explicit ScreenshotView(QWidget* parent = nullptr);

    /// Reads the picture's file; none shows nothing.
    void present(const std::optional<Screenshot>& screenshot);

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ResourceImage m_picture;
};
