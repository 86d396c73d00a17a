// The large pictures of the dialogs around the service.
#pragma once

#include <QString>

class QLabel;
class QWidget;

// A label that shows the picture and says in words what it shows. Names: service-started,
// service-stopped, connection-lost, connection-restored.
[[nodiscard]] QLabel *PictureLabel(const QString &picture, const QString &words, QWidget *parent);
