#include "ui/Sidebar.h"

#include "ui/SectionButton.h"
#include "ui/kit/Accessibility.h"
#include "ui/kit/Divider.h"
#include "ui/kit/SearchField.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

Sidebar::Sidebar(Requests& requests, QWidget* parent)
    : QWidget(parent)
    , m_brandImage(new QLabel)
    , m_brandName(new TextLabel({.style = Style::brandName}))
    , m_search(new SearchField({}))
    , m_maker(new TextLabel({.style = Style::makerName}))
    , m_makerNote(new TextLabel({.style = Style::makerNote, .color = Style::secondaryText()}))
{
    setLayout(vstack(
        {.spacing = Style::sidebarSpacing,
            .margins = {Style::sidebarMargin, Style::sidebarTop, Style::sidebarMargin, Style::sidebarBottom}},
        {brand(), m_search, sectionList(requests), Spacer(), new Divider, maker()}));
    setMinimumWidth(Style::sidebarMinWidth);
    setMaximumWidth(Style::sidebarMaxWidth);

    // Not only typing edits: assistive technology sets the text as a program does.
    connect(m_search, &QLineEdit::textChanged, this,
        [&requests](const QString& text) { Q_EMIT requests.sent(request::Search{text}); });
}

QLayout* Sidebar::brand()
{
    m_brandImage->setFixedSize(Style::brandImage, Style::brandImage);
    m_brandImage->setAlignment(Qt::AlignCenter);
    makeDecorative(*m_brandImage);
    return hstack({.spacing = Style::brandSpacing}, {m_brandImage, stretched(m_brandName)});
}

QLayout* Sidebar::sectionList(Requests& requests)
{
    QVBoxLayout* const list = vstack({.spacing = Style::sectionSpacing}, {});
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
    return hstack({.spacing = Style::makerSpacing},
        {
            new TextLabel({.style = Style::body,
                .color = Style::secondaryText(),
                .symbol = u"person.crop.circle"_s,
                .symbolSize = Style::makerSymbol}),
            stretched(vstack({.spacing = Style::makerLineSpacing}, {m_maker, m_makerNote})),
        });
}

void Sidebar::present(const SidebarContent& content)
{
    presentBrandImage(content.brandImage);
    m_brandName->setText(content.brandName);
    m_search->setPlaceholderText(content.searchPlaceholder);
    m_search->setAccessibleName(content.searchPlaceholder);
    // The same text again would move the caret to its end.
    if (m_search->text() != content.search) {
        const QSignalBlocker nobodyTyped(m_search);
        m_search->setText(content.search);
    }
    for (std::size_t index = 0; index < m_sections.size(); ++index)
        m_sections[index]->present(content.sections[index]);
    m_maker->setText(content.maker);
    m_makerNote->setText(content.makerNote);
}

void Sidebar::presentBrandImage(const Path& file)
{
    const QSizeF box(Style::brandImage, Style::brandImage);
    const qreal ratio = devicePixelRatio();
    if (m_brandResource.load(file, int(box.width() * ratio)))
        m_brandImage->setPixmap(QPixmap::fromImage(m_brandResource.fitted(box, ratio)));
    m_brandImage->setVisible(!m_brandResource.image().isNull());
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
    painter.fillRect(rect(), Style::sidebar());
    const QRect edge(width() - Style::hairline, 0, Style::hairline, height());
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), edge), Style::sidebarEdge());
}
