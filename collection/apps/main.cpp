#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QSvgRenderer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int iconEdge = 112;

/// The file of this name in the bundle that the running program lies in.
QString resource(const QString& name)
{
    return QDir(QApplication::applicationDirPath()).filePath(u"../Resources/"_s + name);
}

QJsonObject readApp()
{
    QFile file(resource(u"app.json"_s));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

QPixmap icon(qreal scale)
{
    QPixmap pixmap(QSize(iconEdge, iconEdge) * scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(resource(u"icon.svg"_s)).render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QPalette darkPalette()
{
    QPalette palette(QColor(0x3a, 0x3a, 0x3e), QColor(0x1e, 0x1e, 0x20));
    palette.setColor(QPalette::WindowText, QColor(0xed, 0xed, 0xee));
    palette.setColor(QPalette::ButtonText, QColor(0xed, 0xed, 0xee));
    palette.setColor(QPalette::PlaceholderText, QColor(0x97, 0x97, 0x98));
    return palette;
}

QLabel* label(const QString& text, int pixelSize, QFont::Weight weight, QPalette::ColorRole colour)
{
    auto* const label = new QLabel(text);
    auto font = label->font();
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    label->setFont(font);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(colour);
    return label;
}

/// What a maker wants to know when a user writes to them.
QString details(const QJsonObject& app)
{
    return u"%1 %2 (%3)\n%4\n"_s.arg(app["name"_L1].toString(), app["version"_L1].toString(),
        app["bundleID"_L1].toString(), QDir::cleanPath(QApplication::applicationDirPath() + u"/../.."_s));
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setStyle(u"Fusion"_s);
    QApplication::setPalette(darkPalette());

    const auto app = readApp();
    const auto name = app["name"_L1].toString();
    QWidget window;
    window.setWindowTitle(name);
    window.setWindowIcon(QIcon(icon(1)));

    auto* const picture = new QLabel;
    picture->setPixmap(icon(window.devicePixelRatioF()));
    auto* const copy = new QPushButton(u"Скопировать сведения"_s);
    copy->setMinimumSize(200, 32);
    QObject::connect(copy, &QPushButton::clicked, &window, [&app, copy] {
        QApplication::clipboard()->setText(details(app));
        copy->setText(u"Сведения скопированы"_s);
    });

    auto* const column = new QVBoxLayout(&window);
    column->setContentsMargins(48, 36, 48, 32);
    column->setSpacing(8);
    column->addWidget(picture, 0, Qt::AlignHCenter);
    column->addWidget(label(name, 28, QFont::Bold, QPalette::WindowText), 0, Qt::AlignHCenter);
    column->addWidget(
        label(app["headline"_L1].toString(), 16, QFont::Normal, QPalette::WindowText), 0, Qt::AlignHCenter);
    column->addSpacing(12);
    for (const auto& feature : app["features"_L1].toArray())
        column->addWidget(label(u"✓  "_s + feature.toString(), 14, QFont::Normal, QPalette::PlaceholderText));
    column->addSpacing(20);
    column->addWidget(copy, 0, Qt::AlignHCenter);
    column->addWidget(
        label(u"Версия "_s + app["version"_L1].toString(), 12, QFont::Normal, QPalette::PlaceholderText), 0,
        Qt::AlignHCenter);

    window.setFixedSize(window.sizeHint().expandedTo(QSize(400, 0)));
    window.show();
    return QApplication::exec();
}
