#include "ui/AccessibleOutline.h"
#include "ui/Pictures.h"
#include "ui/UiTest.h"

#include "ui/kit/MessageSheet.h"
#include "ui/kit/PageScroll.h"
#include "ui/kit/PlainButton.h"
#include "ui/kit/SearchField.h"
#include "ui/kit/SelectableText.h"
#include "ui/kit/TextLabel.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList textsOf(const AppRowContent& row)
{
    const auto& [app, primary, busy, saveToolTip, saveName] = row.actions;
    return {row.iconAccessibleName, row.name, row.subtitle, row.meta, row.textAccessibleName, primary,
        saveToolTip, saveName};
}

QStringList textsOf(const CatalogPage& page)
{
    QStringList texts{page.header.title, page.header.subtitle};
    if (page.featured)
        texts << page.featured->slogan << page.featured->name << page.featured->summary
              << page.featured->action << page.featured->accessibleName;
    if (const auto* const empty = std::get_if<EmptyState>(&page.body))
        texts << empty->title << empty->description;
    if (const auto* const list = std::get_if<AppList>(&page.body)) {
        texts += list->title ? QStringList{*list->title} : QStringList();
        for (std::size_t position = 0; position < list->apps.size(); ++position)
            texts += textsOf(appRow(list->apps[position], list->busy));
    }
    return page.footer ? texts << *page.footer : texts;
}

QStringList textsOf(const DetailPage& page)
{
    const auto& [app, primary, busy, saveToolTip, saveName] = page.actions;
    QStringList texts{page.back, page.back, page.name, page.subtitle, page.author, primary, saveToolTip,
        saveName, page.headline, page.description, page.descriptionAccessibleName, page.installTitle,
        page.installText, page.signingNote};
    for (const Fact& fact : page.facts)
        texts << fact.caption << fact.value << fact.accessibleName();
    if (page.screenshot)
        texts << page.screenshot->accessibleName;
    return texts + page.features;
}

/// Every text that the window's content has, as often as it is to be met.
QStringList textsOf(const WindowContent& content)
{
    const SidebarContent& sidebar = content.sidebar;
    QStringList texts{content.title, content.refreshHelp, content.refreshHelp, sidebar.brandName,
        sidebar.searchPlaceholder, sidebar.maker, sidebar.makerNote};
    for (const SectionItem& item : sidebar.sections)
        texts << item.section.title << item.section.title;
    texts += std::visit([](const auto& page) { return textsOf(page); }, content.page);
    if (content.message)
        texts << content.message->title << content.message->text << content.message->button;
    return texts;
}

/// Every text that is shown, or said to a screen reader otherwise than it is shown.
QStringList textsOn(QWidget& window)
{
    const auto* const sheet = window.findChild<MessageSheet*>();
    QStringList texts;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&window))
            continue;
        if (const auto* const label = qobject_cast<const TextLabel*>(widget))
            texts << label->text();
        else if (const auto* const text = qobject_cast<const SelectableText*>(widget))
            texts << text->toPlainText();
        else if (const auto* const button = qobject_cast<const PlainButton*>(widget))
            texts << button->text();
        // The sheet is named by its own texts, the scroll bar and the search's button by the kit.
        if (!qobject_cast<const QScrollBar*>(widget)
            && !qobject_cast<const SearchField*>(widget->parentWidget()) && widget != sheet
            && !(sheet && sheet->isAncestorOf(widget)))
            texts << widget->accessibleName();
        texts << widget->toolTip();
    }
    return texts;
}

std::string sorted(QStringList texts)
{
    texts.removeAll(QString());
    texts.sort();
    return texts.join(u'\n').toStdString();
}

/// Averages of blocks, so that a font of another version does not matter.
constexpr Tolerance anyFont{.block = 10, .distance = 45, .pixels = 12};

using ScreensTest = UiTest;

/// What every page shows, says and looks like in each state.
TEST_F(ScreensTest, AreTheirPagesValuesAndWhatTheBaselinesShow)
{
    struct Screen {
        QString name;
        ViewState view;
        std::function<void()> goThere;
    };
    const std::vector<Screen> screens = {
        {u"overview"_s, {}, [] {}},
        {u"section"_s, {.section = u"Утилиты"_s, .search = {}, .selected = {}},
            [this] {
                platform.bundles.installed["/Applications/Brisko.app"] = brisko.bundleID;
                press(u"Утилиты"_s);
                press(u"Скачать Brisko в ZIP"_s);
            }},
        {u"search"_s, {.section = u"Обзор"_s, .search = u"xyz"_s, .selected = {}},
            [this] { QTest::keyClicks(shown<QLineEdit>(), u"xyz"_s); }},
        {u"downloads"_s, {.section = u"Загрузки"_s, .search = {}, .selected = {}},
            [this] { press(u"Загрузки"_s); }},
        {u"detail"_s, {.section = u"Обзор"_s, .search = {}, .selected = brisko},
            [this] { press(u"Подробнее о Brisko"_s); }},
        {u"mirrored"_s, {}, [this] { view().setLayoutDirection(Qt::RightToLeft); }},
        {u"message"_s, {}, [this] { store().message.set(u"Готово. <b>A&B</b>\nВторая строка"_s); }},
    };
    for (const auto& [name, state, goThere] : screens) {
        SCOPED_TRACE(name.toStdString());
        platform.bundles.installed.clear();
        open({brisko, kadrilo});
        goThere();
        settle();

        EXPECT_EQ(sorted(textsOn(view())), sorted(textsOf(windowContent(state, store()))));
        QWidget* part = shown<PageScroll>();
        if (name == u"overview"_s)
            part = &view();
        if (name == u"message"_s)
            part = shown<MessageSheet>();
        if (name != u"mirrored"_s)
            expectText(name + u".outline"_s, accessibleOutline(*part));
        expectPicture(name, view().grab().toImage(), anyFont);
    }
}

} // namespace
