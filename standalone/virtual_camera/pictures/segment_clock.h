#pragma once

#include <QPainter>
#include <QRectF>

/// Draws a time as mm:ss.hh in seven-segment digits on a dark panel. Needs no font.
void drawSegmentClock(QPainter& painter, const QRectF& panel, double seconds);
