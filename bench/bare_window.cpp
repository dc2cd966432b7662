// The least that a window with a text can be in Qt Widgets: what the store's window is compared with.

#include <QApplication>
#include <QLabel>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QLabel label(QStringLiteral("PloviStore"));
    label.setAlignment(Qt::AlignCenter);
    label.resize(1180, 840);
    label.show();
    return QApplication::exec();
}
