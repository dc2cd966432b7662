#include <QString>

#include <gtest/gtest.h>

namespace {

/// Offscreen windows cannot tell their dialogs' size hints to a window manager, and say so.
constexpr QLatin1StringView harmless("This plugin does not support propagateSizeHints()");

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtFatalMsg) {
        fprintf(stderr, "%s\n", qPrintable(text));
        std::abort();
    }
    if ((type == QtWarningMsg || type == QtCriticalMsg) && text != harmless)
        ADD_FAILURE() << "Qt warns: " << text.toStdString();
}

}

int main(int argc, char* argv[])
{
    qInstallMessageHandler(failOnWarning);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
