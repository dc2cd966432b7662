#include <QString>

#include <gtest/gtest.h>

namespace {

/// Offscreen there is no window manager, and Qt says what it cannot tell one.
bool isHarmless(const QString& text)
{
    return text == QLatin1StringView("This plugin does not support propagateSizeHints()")
        || text == QLatin1StringView("This plugin does not support grabbing the keyboard")
        || text == QLatin1StringView("This plugin does not support raise()");
}

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtFatalMsg) {
        fprintf(stderr, "%s\n", qPrintable(text));
        std::abort();
    }
    if ((type == QtWarningMsg || type == QtCriticalMsg) && !isHarmless(text))
        ADD_FAILURE() << "Qt warns: " << text.toStdString();
}

} // namespace

int main(int argc, char* argv[])
{
    qInstallMessageHandler(failOnWarning);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
