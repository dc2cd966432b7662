#include "platform/Failure.h"

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

QString sentence(int errorNumber)
{
    switch (errorNumber) {
    case ENOENT:
    case ENOTDIR:
        return u"Файл или папка не найдены."_s;
    case EACCES:
    case EPERM:
        return u"Недостаточно прав доступа."_s;
    case EROFS:
        return u"Диск доступен только для чтения."_s;
    case EISDIR:
        return u"Это папка, а не файл."_s;
    case ENAMETOOLONG:
        return u"Имя файла слишком длинное."_s;
    case ELOOP:
        return u"Ссылка замкнута сама на себя."_s;
    case ENOSPC:
    case EDQUOT:
        return u"На диске недостаточно места."_s;
    case EFBIG:
        return u"Файл слишком велик для этого диска."_s;
    case EIO:
        return u"Ошибка чтения или записи на диске."_s;
    case ENOMEM:
        return u"Недостаточно памяти."_s;
    case EMFILE:
    case ENFILE:
        return u"Открыто слишком много файлов."_s;
    case EBUSY:
    case ETXTBSY:
        return u"Файл занят другой программой."_s;
    case EOPNOTSUPP:
        return u"Эта операция здесь не поддерживается."_s;
    case ENOEXEC:
        return u"Программа собрана для другой системы."_s;
    default:
        return u"Система сообщила об ошибке с номером %1."_s.arg(errorNumber);
    }
}

} // namespace

Failure systemFailure(int errorNumber)
{
    return {systemDomain, errorNumber, sentence(errorNumber)};
}
