#pragma once

#include <QStringList>

class QWidget;

/// The labels, buttons and check boxes below window that are too small for their text or reach
/// beyond the widget they sit in, one phrase each. Empty when all can be read. Call it when window
/// has its final size and its layouts are settled. GUI thread only.
QStringList clippedTexts(const QWidget &window);
