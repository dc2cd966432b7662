#pragma once

#include <QTranslator>

/// The words of the menus that Qt opens over texts: those of the menu bar, so that one thing has one name.
/// Asked before the translations that were installed earlier.
class Words : public QTranslator {
    Q_OBJECT

public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(
        const char* context, const char* text, const char* disambiguation, int count) const override;
};
