#pragma once

#include "pack/findings/Finding.h"
#include "platform/Path.h"

#include <QByteArray>

/// A program or a script that shall become a bundle, and what its maker says of it.
struct SourceOrder {
    Path source;
    QString identifier;
    QString version;
    /// The file's name when it is empty.
    QString name;
    /// A picture; none when it is empty.
    Path icon;
};

/// What a bundle is made of.
struct Source {
    Path program;
    QString identifier;
    QString version;
    QString name;
    /// A set of icons; empty when there is none.
    QByteArray icon;
};

/// Finds out what a source is, without starting it. It is complete unless there are errors among the
/// findings.
Source readSource(const SourceOrder& order, Findings& findings);
