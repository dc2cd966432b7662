#include "ui/Sidebar.h"

#include "ui/Look.h"
#include "ui/ResourceImage.h"
#include "ui/SectionButton.h"
#include "ui/kit/Accessibility.h"
#include "ui/kit/Divider.h"
#include "ui/kit/SearchField.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolView.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

Sidebar::Sidebar(Requests& requests, QWidget* parent)
    : QWidget(parent)
    , m_brandImage(new QLabel)
    , m_brandName(new TextLabel({.style = Look::brandName}))
    , m_search(new SearchField)
    , m_maker(new TextLabel({.style = Look::makerName}))
    , m_makerNote(new TextLabel({.style = Look::makerNote, .color = Style::secondaryText()}))
{
    setLayout(vstack(
        {.spacing = Look::sidebarSpacing,
            .margins = {Look::sidebarMargin, Look::sidebarTop, Look::sidebarMargin, Look::sidebarBottom}},
        {brand(), m_search, sectionList(requests), Spacer(), new Divider, maker()}));
    setMinimumWidth(Look::sidebarMinWidth);
    setMaximumWidth(Look::sidebarMaxWidth);

    // Not only typing edits: assistive technology sets the text as a program does.
    connect(m_search, &QLineEdit::textChanged, this,
        [&requests](const QString& text) { Q_EMIT requests.sent(request::Search{text}); });
}

QLayout* Sidebar::brand()
{
    m_brandImage->setFixedSize(Look::brandImage, Look::brandImage);
    m_brandImage->setAlignment(Qt::AlignCenter);
    makeDecorative(*m_brandImage);
    return hstack({.spacing = Look::brandSpacing}, {m_brandImage, stretched(m_brandName)});
}

QLayout* Sidebar::sectionList(Requests& requests)
{
    QVBoxLayout* const list = vstack({.spacing = Look::sectionSpacing}, {});
    std::ranges::transform(sections(), m_sections.begin(), [&](const Section& section) {
        auto* const button = new SectionButton(section);
        connect(button, &QAbstractButton::clicked, this,
            [&requests, title = section.title] { Q_EMIT requests.sent(request::ChooseSection{title}); });
        append(*list, {button}, {});
        return button;
    });
    return list;
}

QLayout* Sidebar::maker()
{
    return hstack({.spacing = Look::makerSpacing},
        {
            new SymbolView(u"person.crop.circle"_s, Look::makerSymbol, Style::secondaryText()),
            stretched(vstack({.spacing = Look::makerLineSpacing}, {m_maker, m_makerNote})),
        });
}

void Sidebar::present(const SidebarContent& content)
{
    presentBrandImage(content.brandImage);
    m_brandName->setText(content.brandName);
    m_search->setPlaceholderText(content.searchPlaceholder);
    m_search->setAccessibleName(content.searchPlaceholder);
    m_search->present(content.search);
    for (std::size_t index = 0; index < m_sections.size(); ++index)
        m_sections[index]->present(content.sections[index]);
    m_maker->setText(content.maker);
    m_makerNote->setText(content.makerNote);
}

void Sidebar::presentBrandImage(const Path& file)
{
    // Read once: the window is presented anew with every keystroke.
    if (std::exchange(m_brandFile, file) == file)
        return;
    const int edge = Look::windowIcon;
    ResourceImage brand;
    brand.load(file, {edge, edge}, devicePixelRatio());
    setWindowIcon(QPixmap::fromImage(brand.image()));
    m_brandImage->setPixmap(windowIcon().pixmap(m_brandImage->size(), devicePixelRatio()));
    m_brandImage->setVisible(!brand.image().isNull());
}

void Sidebar::focusSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void Sidebar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_search->hasFocus() && !m_search->text().isEmpty()) {
        m_search->clear();
        return;
    }
    const auto focused = std::ranges::find(m_sections, focusWidget());
    const bool isUp = event->key() == Qt::Key_Up;
    if (focused == m_sections.end() || (!isUp && event->key() != Qt::Key_Down)) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (isUp && focused != m_sections.begin())
        (*std::prev(focused))->setFocus(Qt::BacktabFocusReason);
    else if (!isUp && std::next(focused) != m_sections.end())
        (*std::next(focused))->setFocus(Qt::TabFocusReason);
}

void Sidebar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Look::sidebar());
    const QRect edge(width() - Style::hairline, 0, Style::hairline, height());
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), edge), Look::sidebarEdge());
}
