// The "Reports..." command.
#pragma once

class QWidget;

// Shows the Reports dialog over `parent` until it is closed.
void OpenReports(QWidget *parent);
