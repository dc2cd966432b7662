#pragma once

#include <QLayoutItem>

/// Places a widget by what lies inside its contents margins; the margins bleed over the neighbouring space,
/// so that a halo around a button moves nothing.
class BleedItem : public QWidgetItem {
public:
    using QWidgetItem::QWidgetItem;

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    int heightForWidth(int width) const override;
    int minimumHeightForWidth(int width) const override;
    void setGeometry(const QRect& rect) override;
    QRect geometry() const override;

private:
    QMargins bleed() const;
};
