#pragma once

#include "ui/Look.h"
#include "ui/ResourceImage.h"
#include "ui/kit/Style.h"

#include <QWidget>

/// The icon of an application in a square of its own. Decorative; hidden, and without room, when there is no
/// icon that can be read.
class AppIcon : public QWidget {
    Q_OBJECT

public:
    explicit AppIcon(Style::Length size = Look::rowIcon, QWidget* parent = nullptr);

    /// Reads the icon of the application with that name from the bundle.
    void present(const QString& name);

    /// Null when there is none.
    const QImage& image() const { return m_picture.image(); }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Returns whether the picture is another one than before.
    bool load();

    int m_size;
    QString m_name;
    ResourceImage m_picture;
};
