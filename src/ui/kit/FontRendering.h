#pragma once

#include <memory>

class QFont;
struct _FcConfig;

/// How this desktop wants fonts rendered (smoothing, hinting, order of subpixels), asked once for all fonts
/// of the interface. Qt asks fontconfig again for every size of every face, and for each answer fontconfig
/// goes through all rules and all fonts of the machine: a third of what the window's start would take.
class FontRendering {
public:
    /// Asks for `font`.
    explicit FontRendering(const QFont& font);

    /// Makes Qt open `font`, with the answer there was. Qt keeps it open as long as it is used, and would
    /// open it again by itself.
    void open(const QFont& font) const;

private:
    struct Destroy {
        void operator()(_FcConfig* config) const;
    };
    /// Without rules, and its only font is the answer; null when there was none.
    std::unique_ptr<_FcConfig, Destroy> m_answer;
};
