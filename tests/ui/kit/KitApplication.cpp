#include "ui/kit/Style.h"

#include <QAccessible>
#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

namespace {

/// The one application of this test program: offscreen, with a runtime folder of its own.
class KitApplication : public testing::Environment {
public:
    void SetUp() override
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("LC_ALL", "C.UTF-8");
        qputenv("XDG_RUNTIME_DIR", m_runtime.path().toLocal8Bit());
        m_application.emplace(m_argumentCount, m_arguments);
        Style::applyTo(*m_application);
        QAccessible::setActive(true);
    }
    void TearDown() override { m_application.reset(); }

private:
    QTemporaryDir m_runtime;
    char m_name[10] = "kit_tests";
    char* m_arguments[2] = {m_name, nullptr};
    int m_argumentCount = 1;
    std::optional<QApplication> m_application;
};

[[maybe_unused]] const auto* const application = testing::AddGlobalTestEnvironment(new KitApplication);

} // namespace
