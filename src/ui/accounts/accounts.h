// The windows of accounts and statistics, as the lists' commands open them. Each is modal; a user or
// group that is gone by then is told instead.
#pragma once

#include <QtGlobal>

class QWidget;

void OpenUserAccount(quint32 userId, QWidget *parent);
void OpenGroupAccount(quint32 groupId, QWidget *parent);
void OpenUserStatistics(quint32 userId, QWidget *parent);
void OpenGroupStatistics(quint32 groupId, QWidget *parent);
