#include "ui/kit/Words.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

struct Word {
    std::string_view text;
    const char16_t* russian;
};

constexpr std::array words{
    Word{"&Undo", u"Отменить"},
    Word{"&Redo", u"Повторить"},
    Word{"Cu&t", u"Вырезать"},
    Word{"&Copy", u"Копировать"},
    Word{"&Paste", u"Вставить"},
    Word{"Delete", u"Удалить"},
    Word{"Select All", u"Выделить всё"},
};

} // namespace

QString Words::translate(const char* context, const char* text, const char*, int) const
{
    const std::string_view place(context);
    const auto* const word = std::ranges::find(words, std::string_view(text), &Word::text);
    const bool isTextMenu = place == "QLineEdit" || place == "QWidgetTextControl";
    return isTextMenu && word != words.end() ? QString::fromUtf16(word->russian) : QString();
}
