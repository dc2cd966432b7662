#pragma once

#include "pack/Drawing.h"

/// The drawing as an icon set (Apple Icon Image, ICNS) whose entries are PNG pictures of 16, 32, 64, 128,
/// 256, 512 and 1024 pixels.
QByteArray iconSet(const Drawing& drawing);
