#pragma once

#include <QImage>

/// How much a picture may differ from its baseline.
struct Tolerance {
    /// So many pixels across and down are averaged to one of the baseline.
    int block;
    /// The sum of the three channels' differences from which on a pixel counts as another one.
    int distance;
    /// So many pixels may be others.
    int pixels;
};

/// Compares with the picture `name`.png among the baselines. With PLOVI_WRITE_BASELINES set, a picture that
/// differs is written instead of compared: look at it beside what it is to show before it is accepted.
void expectPicture(const QString& name, const QImage& picture, const Tolerance& tolerance);

/// The same for the file `name`, byte by byte.
void expectText(const QString& name, const QString& text);
