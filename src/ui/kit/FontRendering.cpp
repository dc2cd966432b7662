#include "ui/kit/FontRendering.h"

#include <QFont>
#include <QFontMetrics>

#include <fontconfig/fontconfig.h>

namespace {

/// What fontconfig finds for `font`: the caller's, null when it has no fonts at all.
FcPattern* bestMatch(const QFont& font)
{
    FcPattern* const wanted = FcPatternCreate();
    const QByteArray family = font.family().toUtf8();
    FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.constData()));
    FcPatternAddDouble(wanted, FC_PIXEL_SIZE, font.pixelSize());
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result{};
    FcPattern* const found = FcFontMatch(nullptr, wanted, &result);
    FcPatternDestroy(wanted);
    return found;
}

} // namespace

void FontRendering::Destroy::operator()(FcConfig* config) const
{
    FcConfigDestroy(config);
}

FontRendering::FontRendering(const QFont& font)
{
    FcPattern* const answer = bestMatch(font);
    if (!answer)
        return;
    m_answer.reset(FcConfigCreate());
    FcConfigBuildFonts(m_answer.get());
    FcFontSetAdd(FcConfigGetFonts(m_answer.get(), FcSetSystem), answer);
}

void FontRendering::open(const QFont& font) const
{
    FcConfig* const usual = FcConfigReference(nullptr);
    if (m_answer)
        FcConfigSetCurrent(m_answer.get());
    QFontMetrics(font).height();
    FcConfigSetCurrent(usual);
    FcConfigDestroy(usual);
}
