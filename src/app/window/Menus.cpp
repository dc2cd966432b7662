#include "app/window/Menus.h"

using namespace Qt::StringLiterals;

std::vector<Menu> menus()
{
    return {
        {u"PloviStore"_s,
            {
                {Command::About, u"О программе PloviStore"_s, {}},
                {Command::VisitSite, u"Сайт Orbanel"_s, {}},
                {Command::Quit, u"Завершить PloviStore"_s, QKeySequence(Qt::CTRL | Qt::Key_Q), true},
            }},
        {u"Файл"_s,
            {
                {Command::Close, u"Закрыть окно"_s, QKeySequence(Qt::CTRL | Qt::Key_W)},
            }},
        {u"Правка"_s,
            {
                {Command::Undo, u"Отменить"_s, QKeySequence::Undo},
                {Command::Redo, u"Повторить"_s, QKeySequence::Redo},
                {Command::Cut, u"Вырезать"_s, QKeySequence::Cut, true},
                {Command::Copy, u"Копировать"_s, QKeySequence::Copy},
                {Command::Paste, u"Вставить"_s, QKeySequence::Paste},
                {Command::Delete, u"Удалить"_s, {}},
                {Command::SelectAll, u"Выделить всё"_s, QKeySequence::SelectAll},
                {Command::Find, u"Найти приложение"_s, QKeySequence::Find, true},
            }},
        {u"Вид"_s,
            {
                {Command::Refresh, u"Обновить"_s, QKeySequence(Qt::CTRL | Qt::Key_R)},
                {Command::FullScreen, u"Полный экран"_s, QKeySequence(Qt::Key_F11)},
            }},
        {u"Окно"_s,
            {
                {Command::Minimize, u"Свернуть"_s, QKeySequence(Qt::CTRL | Qt::Key_M)},
                {Command::Zoom, u"Развернуть"_s, {}},
            }},
    };
}
