// What the program is, its version and its licence.
#pragma once

class QWidget;

void OpenAbout(QWidget *parent);
