#include "platform/Platform.h"

#include <QtGlobal>

namespace {

const Platform* s_current = nullptr;

}

const Platform& Platform::current()
{
    Q_ASSERT_X(s_current, "Platform::current", "no platform is installed");
    return *s_current;
}

PlatformScope::PlatformScope(const Platform& platform) : m_platform(platform), m_before(s_current)
{
    s_current = &m_platform;
}

PlatformScope::~PlatformScope()
{
    s_current = m_before;
}
