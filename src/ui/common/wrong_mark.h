// How a field shows that what it holds cannot be taken.
#pragma once

class QWidget;

// A frame within the field's edge, told from the ground of a light and of a dark desktop, and by its
// width from the frame of the focus. Painted over the field, from its paintEvent.
void PaintWrongMark(QWidget &field);
