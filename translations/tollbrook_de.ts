<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About Tollbrook Administrator</source>
        <translation>Über Tollbrook Administrator</translation>
    </message>
    <message>
        <source>&lt;b&gt;Tollbrook Administrator&lt;/b&gt; %1</source>
        <translation>&lt;b&gt;Tollbrook Administrator&lt;/b&gt; %1</translation>
    </message>
    <message>
        <source>The administration console of Tollbrook Network: users, groups, limits, credits and blocks of the accounting service.

Licensed under the Apache License, version 2.0.</source>
        <translation>Die Verwaltungskonsole von Tollbrook Network: Benutzer, Gruppen, Limits, Guthaben und Sperren des Abrechnungsdienstes.

Lizenziert unter der Apache-Lizenz, Version 2.0.</translation>
    </message>
</context>
<context>
    <name>AccessMode</name>
    <message>
        <source>No control</source>
        <translation>Keine Kontrolle</translation>
    </message>
    <message>
        <source>Corporate, traffic control</source>
        <translation>Firma, Kontrolle des Datenverkehrs</translation>
    </message>
    <message>
        <source>Provider</source>
        <translation>Provider</translation>
    </message>
    <message>
        <source>Corporate, time control</source>
        <translation>Firma, Kontrolle der Zeit</translation>
    </message>
    <message>
        <source>Corporate, traffic and time control</source>
        <translation>Firma, Kontrolle von Datenverkehr und Zeit</translation>
    </message>
</context>
<context>
    <name>AccessTypeBox</name>
    <message>
        <source>Access type</source>
        <translation>Zugangsart</translation>
    </message>
    <message>
        <source>No control</source>
        <translation>Keine Kontrolle</translation>
    </message>
    <message>
        <source>Corporate</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>Provider</source>
        <translation>Provider</translation>
    </message>
    <message>
        <source>Traffic control</source>
        <translation>Kontrolle des Datenverkehrs</translation>
    </message>
    <message>
        <source>Time control </source>
        <translation>Kontrolle der Zeit </translation>
    </message>
</context>
<context>
    <name>AccessWords</name>
    <message>
        <source>This user is not monitored: nothing is counted, limited or blocked.</source>
        <translation>Dieser Benutzer wird nicht überwacht: nichts wird gezählt, begrenzt oder gesperrt.</translation>
    </message>
    <message>
        <source>Marked as blocked for reason 4, which lets the user through.</source>
        <translation>Als gesperrt aus Grund 4 gekennzeichnet, der den Benutzer durchlässt.</translation>
    </message>
    <message>
        <source>Nothing stands against access.</source>
        <translation>Dem Zugang steht nichts entgegen.</translation>
    </message>
    <message>
        <source>d MMMM</source>
        <comment>a day of this year</comment>
        <translation>d. MMMM</translation>
    </message>
    <message>
        <source>d MMMM yyyy</source>
        <comment>a day of another year</comment>
        <translation>d. MMMM yyyy</translation>
    </message>
    <message>
        <source>midnight</source>
        <translation>Mitternacht</translation>
    </message>
    <message>
        <source>%1 today</source>
        <translation>heute, %1 Uhr</translation>
    </message>
    <message>
        <source>%1 on %2</source>
        <comment>a time and a day</comment>
        <translation>%2, %1 Uhr</translation>
    </message>
    <message>
        <source>Blocked for a reason without a meaning (%1).</source>
        <translation>Aus einem Grund ohne Bedeutung gesperrt (%1).</translation>
    </message>
    <message>
        <source>Blocked by the administrator.</source>
        <translation>Vom Administrator gesperrt.</translation>
    </message>
    <message>
        <source>Blocked by the administrator since %1.</source>
        <translation>Vom Administrator gesperrt seit dem %1.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>a day and a time</comment>
        <translation>%1, %2 Uhr</translation>
    </message>
    <message>
        <source>The block stays until the service lifts it.</source>
        <translation>Die Sperre bleibt, bis der Dienst sie aufhebt.</translation>
    </message>
    <message>
        <source>Blocked by the accounting service for traffic, though by now nothing that limits it is used up.</source>
        <translation>Vom Abrechnungsdienst wegen des Datenverkehrs gesperrt, obwohl inzwischen nichts mehr aufgebraucht ist, was ihn begrenzt.</translation>
    </message>
    <message>
        <source>Blocked by the accounting service for time, though by now nothing that limits it is used up.</source>
        <translation>Vom Abrechnungsdienst wegen der Zeit gesperrt, obwohl inzwischen nichts mehr aufgebraucht ist, was sie begrenzt.</translation>
    </message>
    <message>
        <source>Blocked by the accounting service, which did not say why.</source>
        <translation>Vom Abrechnungsdienst gesperrt, der keinen Grund genannt hat.</translation>
    </message>
    <message>
        <source>%1 today</source>
        <comment>an amount used</comment>
        <translation>%1 heute</translation>
    </message>
    <message>
        <source>%1 since %2</source>
        <comment>an amount used</comment>
        <translation>%1 seit dem %2</translation>
    </message>
    <message>
        <source>The period ends today.</source>
        <translation>Der Zeitraum endet heute.</translation>
    </message>
    <message>
        <source>The period ends on %1.</source>
        <translation>Der Zeitraum endet am %1.</translation>
    </message>
    <message>
        <source>A credit has expired: its last day was %1.</source>
        <translation>Ein Guthaben ist abgelaufen: sein letzter Tag war der %1.</translation>
    </message>
    <message>
        <source>%1 credits have expired: the last one&apos;s last day was %2.</source>
        <translation>%1 Guthaben sind abgelaufen: der letzte Tag des letzten war der %2.</translation>
    </message>
    <message>
        <source>Of that, credits give %1.</source>
        <translation>Davon stammen %1 aus Guthaben.</translation>
    </message>
    <message>
        <source>The traffic limit of %1 is used up (%2).</source>
        <translation>Das Datenlimit von %1 ist aufgebraucht (%2).</translation>
    </message>
    <message>
        <source>Of the traffic limit of %1, %3 is left (used: %2).</source>
        <translation>Vom Datenlimit von %1 bleiben %3 (verbraucht: %2).</translation>
    </message>
    <message>
        <source>%1 Mb</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>The traffic limit of %1 that the group shares is used up (%2).</source>
        <translation>Das Datenlimit von %1, das sich die Gruppe teilt, ist aufgebraucht (%2).</translation>
    </message>
    <message>
        <source>Of the traffic limit of %1 that the group shares, %3 is left (used: %2).</source>
        <translation>Vom Datenlimit von %1, das sich die Gruppe teilt, bleiben %3 (verbraucht: %2).</translation>
    </message>
    <message>
        <source>The time limit of %1 is used up (%2).</source>
        <translation>Das Zeitlimit von %1 ist aufgebraucht (%2).</translation>
    </message>
    <message>
        <source>Of the time limit of %1, %3 is left (used: %2).</source>
        <translation>Vom Zeitlimit von %1 bleiben %3 (verbraucht: %2).</translation>
    </message>
    <message>
        <source>%1 h</source>
        <comment>hours</comment>
        <translation>%1 Std.</translation>
    </message>
    <message>
        <source> and </source>
        <comment>between two amounts</comment>
        <translation> und </translation>
    </message>
    <message>
        <source>No pre-paid credit of the group is left.</source>
        <translation>Die Gruppe hat kein Prepaid-Guthaben mehr.</translation>
    </message>
    <message>
        <source>No pre-paid credit is left.</source>
        <translation>Es ist kein Prepaid-Guthaben mehr vorhanden.</translation>
    </message>
    <message>
        <source>The group has a pre-paid credit without a bound.</source>
        <translation>Die Gruppe hat ein unbegrenztes Prepaid-Guthaben.</translation>
    </message>
    <message>
        <source>There is a pre-paid credit without a bound.</source>
        <translation>Es gibt ein unbegrenztes Prepaid-Guthaben.</translation>
    </message>
    <message>
        <source>Of the group&apos;s pre-paid credit, %1 is left.</source>
        <translation>Vom Prepaid-Guthaben der Gruppe bleiben %1.</translation>
    </message>
    <message>
        <source>Of the pre-paid credit, %1 is left.</source>
        <translation>Vom Prepaid-Guthaben bleiben %1.</translation>
    </message>
    <message>
        <source>Its last day is %1.</source>
        <translation>Sein letzter Tag ist der %1.</translation>
    </message>
    <message>
        <source>The allowed time lasts the whole week.</source>
        <translation>Die erlaubte Zeit umfasst die ganze Woche.</translation>
    </message>
    <message>
        <source>No time of the week is an allowed one.</source>
        <translation>Zu keiner Zeit der Woche ist der Zugang erlaubt.</translation>
    </message>
    <message>
        <source>Within the allowed time, until %1.</source>
        <translation>Innerhalb der erlaubten Zeit, bis %1.</translation>
    </message>
    <message>
        <source>Outside the allowed time until %1.</source>
        <translation>Außerhalb der erlaubten Zeit bis %1.</translation>
    </message>
    <message>
        <source>The next allowed time lasts until %1.</source>
        <translation>Die nächste erlaubte Zeit dauert bis %1.</translation>
    </message>
    <message>
        <source>These are the times of the group.</source>
        <translation>Dies sind die Zeiten der Gruppe.</translation>
    </message>
    <message>
        <source>Time ranges that cannot be read: %1.</source>
        <translation>Zeitbereiche, die nicht gelesen werden können: %1.</translation>
    </message>
    <message>
        <source>The user is logged in.</source>
        <translation>Der Benutzer ist angemeldet.</translation>
    </message>
    <message>
        <source>The user is not logged in.</source>
        <translation>Der Benutzer ist nicht angemeldet.</translation>
    </message>
    <message>
        <source>The user must log in. Whether that was done, only the service knows.</source>
        <translation>Der Benutzer muss sich anmelden. Ob er das getan hat, weiß nur der Dienst.</translation>
    </message>
    <message>
        <source>No login belongs to this user.</source>
        <translation>Zu diesem Benutzer gehört keine Anmeldung.</translation>
    </message>
    <message>
        <source>The user&apos;s group is blocked by the administrator.</source>
        <translation>Die Gruppe des Benutzers ist vom Administrator gesperrt.</translation>
    </message>
    <message>
        <source>The user&apos;s group is blocked by the accounting service.</source>
        <translation>Die Gruppe des Benutzers ist vom Abrechnungsdienst gesperrt.</translation>
    </message>
    <message>
        <source>Only these protocols are allowed to the group: %1.</source>
        <translation>Nur diese Protokolle sind der Gruppe erlaubt: %1.</translation>
    </message>
    <message>
        <source>These protocols are denied to the group: %1.</source>
        <translation>Diese Protokolle sind der Gruppe verboten: %1.</translation>
    </message>
    <message>
        <source>Only these protocols are allowed: %1.</source>
        <translation>Nur diese Protokolle sind erlaubt: %1.</translation>
    </message>
    <message>
        <source>These protocols are denied: %1.</source>
        <translation>Diese Protokolle sind verboten: %1.</translation>
    </message>
    <message>
        <source>Monitor...</source>
        <translation>Überwachen …</translation>
    </message>
    <message>
        <source>Unblock group...</source>
        <translation>Gruppe entsperren …</translation>
    </message>
    <message>
        <source>Unblock</source>
        <translation>Entsperren</translation>
    </message>
    <message>
        <source>Access...</source>
        <translation>Zugang …</translation>
    </message>
    <message>
        <source>Raise limit...</source>
        <translation>Limit erhöhen …</translation>
    </message>
    <message>
        <source>Add credit...</source>
        <translation>Guthaben hinzufügen …</translation>
    </message>
    <message>
        <source>Times...</source>
        <translation>Zeiten …</translation>
    </message>
    <message>
        <source>Logins...</source>
        <translation>Anmeldungen …</translation>
    </message>
    <message>
        <source>Protocols...</source>
        <translation>Protokolle …</translation>
    </message>
    <message>
        <source>Access is allowed</source>
        <translation>Zugang erlaubt</translation>
    </message>
    <message>
        <source>Access is allowed after login</source>
        <translation>Zugang nach Anmeldung erlaubt</translation>
    </message>
    <message>
        <source>Access is denied</source>
        <translation>Zugang verweigert</translation>
    </message>
    <message>
        <source>Access is blocked</source>
        <translation>Zugang gesperrt</translation>
    </message>
    <message>
        <source>Outside the allowed time</source>
        <translation>Außerhalb der erlaubten Zeit</translation>
    </message>
    <message>
        <source>The users list shows &quot;%1&quot; instead: it goes by the marks in the user&apos;s row alone.</source>
        <translation>Die Benutzerliste zeigt stattdessen „%1“: sie richtet sich allein nach den Kennzeichen in der Zeile des Benutzers.</translation>
    </message>
    <message>
        <source>The words above go by the user&apos;s block alone. With all that counts: %1.</source>
        <translation>Die Angabe oben richtet sich allein nach der Sperre des Benutzers. Mit allem, was zählt: %1.</translation>
    </message>
    <message>
        <source>without a bound</source>
        <translation>ohne Grenze</translation>
    </message>
    <message>
        <source>The users list does not show this user: it holds monitored users alone.</source>
        <translation>Die Benutzerliste zeigt diesen Benutzer nicht: sie enthält nur überwachte Benutzer.</translation>
    </message>
</context>
<context>
    <name>Account</name>
    <message>
        <source>The account &quot;%1&quot; of the data source &quot;%2&quot; lacks the right to this: %3</source>
        <translation>Dem Konto „%1“ der Datenquelle „%2“ fehlt das Recht dazu: %3</translation>
    </message>
    <message>
        <source>The file of the database may only be read. That, too, needs a program that may write to it to have it open: start the accounting service. (%1)</source>
        <translation>Die Datei der Datenbank darf nur gelesen werden. Auch das geht nur, solange ein Programm sie offen hat, das sie beschreiben darf: Starten Sie den Abrechnungsdienst. (%1)</translation>
    </message>
</context>
<context>
    <name>AccountDialog</name>
    <message>
        <source>Reading the account...</source>
        <translation>Das Konto wird gelesen …</translation>
    </message>
    <message>
        <source>The credits could not be read.</source>
        <translation>Die Guthaben konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Changing the account...</source>
        <translation>Das Konto wird geändert …</translation>
    </message>
    <message>
        <source>No credits in this period</source>
        <translation>Keine Guthaben in diesem Zeitraum</translation>
    </message>
    <message>
        <source>&amp;Open credits only</source>
        <translation>Nur &amp;offene Guthaben</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>&amp;Period:</source>
        <translation>&amp;Zeitraum:</translation>
    </message>
    <message>
        <source>&amp;Add credit...</source>
        <translation>Guthaben &amp;hinzufügen …</translation>
    </message>
    <message>
        <source>C&amp;lose credit</source>
        <translation>Guthaben &amp;schließen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Please select credit to close</source>
        <translation>Bitte wählen Sie das Guthaben, das geschlossen werden soll</translation>
    </message>
    <message>
        <source>Cannot close Expired or New account</source>
        <translation>Ein abgelaufenes oder neues Guthaben kann nicht geschlossen werden</translation>
    </message>
    <message>
        <source>Select the item to delete</source>
        <translation>Wählen Sie den Eintrag, der gelöscht werden soll</translation>
    </message>
    <message>
        <source>Cannot delete Expired or Active account</source>
        <translation>Ein abgelaufenes oder aktives Guthaben kann nicht gelöscht werden</translation>
    </message>
</context>
<context>
    <name>AccountPage</name>
    <message>
        <source>Reading the account...</source>
        <translation>Das Konto wird gelesen …</translation>
    </message>
    <message>
        <source>The credits could not be read.</source>
        <translation>Die Guthaben konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>No credits</source>
        <translation>Keine Guthaben</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>&amp;Balance, Mb:</source>
        <translation>Sal&amp;do, MB:</translation>
    </message>
    <message>
        <source>Select the item to delete</source>
        <translation>Wählen Sie den Eintrag, der gelöscht werden soll</translation>
    </message>
    <message>
        <source>Cannot delete Expired or Active account</source>
        <translation>Ein abgelaufenes oder aktives Guthaben kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Select the item to close</source>
        <translation>Wählen Sie den Eintrag, der geschlossen werden soll</translation>
    </message>
    <message>
        <source>Cannot close Expired or New account</source>
        <translation>Ein abgelaufenes oder neues Guthaben kann nicht geschlossen werden</translation>
    </message>
    <message>
        <source>You are about to close this credit. Continue?</source>
        <translation>Sie sind dabei, dieses Guthaben zu schließen. Fortfahren?</translation>
    </message>
</context>
<context>
    <name>Accounts</name>
    <message>
        <source>Reading the account...</source>
        <translation>Das Konto wird gelesen …</translation>
    </message>
    <message>
        <source>The account could not be read.</source>
        <translation>Das Konto konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Reading the statistics...</source>
        <translation>Die Statistik wird gelesen …</translation>
    </message>
    <message>
        <source>The statistics could not be read.</source>
        <translation>Die Statistik konnte nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>Action</name>
    <message>
        <source>What is not named here was written as it was entered.</source>
        <translation>Was hier nicht genannt ist, wurde so geschrieben, wie es eingegeben wurde.</translation>
    </message>
    <message>
        <source>Please look at it again before you repeat it.</source>
        <translation>Bitte sehen Sie noch einmal nach, bevor Sie es wiederholen.</translation>
    </message>
    <message>
        <source>Nothing was changed in the database.</source>
        <translation>In der Datenbank wurde nichts geändert.</translation>
    </message>
    <message>
        <source>The user&apos;s properties were not stored.</source>
        <translation>Die Eigenschaften des Benutzers wurden nicht gespeichert.</translation>
    </message>
    <message>
        <source>It is not known whether the user&apos;s properties were stored.</source>
        <translation>Ob die Eigenschaften des Benutzers gespeichert wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The group&apos;s properties were not stored.</source>
        <translation>Die Eigenschaften der Gruppe wurden nicht gespeichert.</translation>
    </message>
    <message>
        <source>It is not known whether the group&apos;s properties were stored.</source>
        <translation>Ob die Eigenschaften der Gruppe gespeichert wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The account was not changed.</source>
        <translation>Das Konto wurde nicht geändert.</translation>
    </message>
    <message>
        <source>It is not known whether the account was changed.</source>
        <translation>Ob das Konto geändert wurde, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>No user&apos;s access properties were changed.</source>
        <translation>Bei keinem Benutzer wurden die Zugangseigenschaften geändert.</translation>
    </message>
    <message>
        <source>It is not known whether the users&apos; access properties were changed.</source>
        <translation>Ob die Zugangseigenschaften der Benutzer geändert wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The group was not changed.</source>
        <translation>Die Gruppe wurde nicht geändert.</translation>
    </message>
    <message>
        <source>It is not known whether the group was changed.</source>
        <translation>Ob die Gruppe geändert wurde, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>No user was deleted.</source>
        <translation>Kein Benutzer wurde gelöscht.</translation>
    </message>
    <message>
        <source>It is not known whether the users were deleted.</source>
        <translation>Ob die Benutzer gelöscht wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>No user was moved to the unmonitored list.</source>
        <translation>Kein Benutzer wurde in die Liste der nicht überwachten verschoben.</translation>
    </message>
    <message>
        <source>It is not known whether the users were moved to the unmonitored list.</source>
        <translation>Ob die Benutzer in die Liste der nicht überwachten verschoben wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>No user was brought back under monitoring.</source>
        <translation>Kein Benutzer wird wieder überwacht.</translation>
    </message>
    <message>
        <source>It is not known whether the users were brought back under monitoring.</source>
        <translation>Ob die Benutzer wieder überwacht werden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The group was not added.</source>
        <translation>Die Gruppe wurde nicht hinzugefügt.</translation>
    </message>
    <message>
        <source>It is not known whether the group was added.</source>
        <translation>Ob die Gruppe hinzugefügt wurde, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The group was not renamed.</source>
        <translation>Die Gruppe wurde nicht umbenannt.</translation>
    </message>
    <message>
        <source>It is not known whether the group was renamed.</source>
        <translation>Ob die Gruppe umbenannt wurde, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The group was not deleted.</source>
        <translation>Die Gruppe wurde nicht gelöscht.</translation>
    </message>
    <message>
        <source>It is not known whether the group was deleted.</source>
        <translation>Ob die Gruppe gelöscht wurde, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The user of an excluded address was not removed.</source>
        <translation>Der Benutzer einer ausgeschlossenen Adresse wurde nicht entfernt.</translation>
    </message>
    <message>
        <source>It is not known whether the user of an excluded address was removed.</source>
        <translation>Ob der Benutzer einer ausgeschlossenen Adresse entfernt wurde, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Not all protocols and ports were stored.</source>
        <translation>Nicht alle Protokolle und Ports wurden gespeichert.</translation>
    </message>
    <message>
        <source>It is not known whether the protocols and ports were stored.</source>
        <translation>Ob die Protokolle und Ports gespeichert wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Not all logins were stored.</source>
        <translation>Nicht alle Anmeldungen wurden gespeichert.</translation>
    </message>
    <message>
        <source>It is not known whether the logins were stored.</source>
        <translation>Ob die Anmeldungen gespeichert wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Not all records were removed.</source>
        <translation>Nicht alle Datensätze wurden entfernt.</translation>
    </message>
    <message>
        <source>It is not known whether the records were removed.</source>
        <translation>Ob die Datensätze entfernt wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>No user was blocked.</source>
        <translation>Kein Benutzer wurde gesperrt.</translation>
    </message>
    <message>
        <source>It is not known whether the users were blocked.</source>
        <translation>Ob die Benutzer gesperrt wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>No user was unblocked.</source>
        <translation>Kein Benutzer wurde entsperrt.</translation>
    </message>
    <message>
        <source>It is not known whether the users were unblocked.</source>
        <translation>Ob die Benutzer entsperrt wurden, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Nothing was undone.</source>
        <translation>Nichts wurde rückgängig gemacht.</translation>
    </message>
    <message>
        <source>It is not known whether the change was undone.</source>
        <translation>Ob die Änderung rückgängig gemacht wurde, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The user was not added.</source>
        <translation>Der Benutzer wurde nicht hinzugefügt.</translation>
    </message>
    <message>
        <source>It is not known whether the user was added.</source>
        <translation>Ob der Benutzer hinzugefügt wurde, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Nothing was imported.</source>
        <translation>Es wurde nichts importiert.</translation>
    </message>
    <message>
        <source>It is not known whether the users were imported.</source>
        <translation>Es ist nicht bekannt, ob die Benutzer importiert wurden.</translation>
    </message>
    <message>
        <source>The group&apos;s times were not stored.</source>
        <translation>Die Zeiten der Gruppe wurden nicht gespeichert.</translation>
    </message>
    <message>
        <source>It is not known whether the group&apos;s times were stored.</source>
        <translation>Es ist nicht bekannt, ob die Zeiten der Gruppe gespeichert wurden.</translation>
    </message>
</context>
<context>
    <name>AdapterChooser</name>
    <message>
        <source>Select new adapter from the list</source>
        <translation>Neue Netzwerkkarte aus der Liste wählen</translation>
    </message>
    <message>
        <source>Current adapter:</source>
        <translation>Aktuelle Netzwerkkarte:</translation>
    </message>
    <message>
        <source>Bind to IP address:</source>
        <translation>Gebunden an IP-Adresse:</translation>
    </message>
    <message>
        <source>Select new adapter from the list:</source>
        <translation>Neue Netzwerkkarte aus der Liste wählen:</translation>
    </message>
    <message>
        <source>You are about to bind Tollbrook service to another network card. Continue?</source>
        <translation>Sie sind dabei, den Tollbrook-Dienst an eine andere Netzwerkkarte zu binden. Fortfahren?</translation>
    </message>
</context>
<context>
    <name>AdapterDialog</name>
    <message>
        <source>Select network card Tollbrook will work with</source>
        <translation>Netzwerkkarte wählen, mit der Tollbrook arbeitet</translation>
    </message>
</context>
<context>
    <name>AdapterPage</name>
    <message>
        <source>Error!</source>
        <translation>Fehler!</translation>
    </message>
    <message>
        <source>Adapter selection</source>
        <translation>Netzwerkkarte</translation>
    </message>
</context>
<context>
    <name>AddMemberDialog</name>
    <message>
        <source>Add user to the group</source>
        <translation>Benutzer zur Gruppe hinzufügen</translation>
    </message>
    <message>
        <source>Users of other groups:</source>
        <translation>Benutzer anderer Gruppen:</translation>
    </message>
</context>
<context>
    <name>AddRangeDialog</name>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation>Subnetzmaske</translation>
    </message>
    <message>
        <source>Add IP addresses range</source>
        <translation>IP-Adressbereich hinzufügen</translation>
    </message>
    <message>
        <source>IP address:</source>
        <translation>IP-Adresse:</translation>
    </message>
    <message>
        <source>Subnet mask:</source>
        <translation>Subnetzmaske:</translation>
    </message>
</context>
<context>
    <name>AddressHolder</name>
    <message>
        <source>This IP address is bind to another user. This user will be removed. Proceed?</source>
        <translation>Diese IP-Adresse ist einem anderen Benutzer zugeordnet. Dieser Benutzer wird entfernt. Fortfahren?</translation>
    </message>
    <message>
        <source>This MAC address is bind to another user. This user will be removed. Proceed?</source>
        <translation>Diese MAC-Adresse ist einem anderen Benutzer zugeordnet. Dieser Benutzer wird entfernt. Fortfahren?</translation>
    </message>
</context>
<context>
    <name>AddressRanges</name>
    <message>
        <source>You entered incorrect IP addresses and/or subnet mask</source>
        <translation>Sie haben eine falsche IP-Adresse oder Subnetzmaske eingegeben</translation>
    </message>
    <message>
        <source>You have already defined this range of IP addresses</source>
        <translation>Sie haben diesen Bereich von IP-Adressen bereits festgelegt</translation>
    </message>
    <message>
        <source>You can not define more than %1 ranges of IP addresses</source>
        <translation>Sie können nicht mehr als %1 Bereiche von IP-Adressen festlegen</translation>
    </message>
</context>
<context>
    <name>AuthenticationPage</name>
    <message>
        <source>Require authentication from all new users</source>
        <translation>Anmeldung von allen neuen Benutzern verlangen</translation>
    </message>
    <message>
        <source>Allow authentication for users not logged to domain</source>
        <translation>Anmeldung auch Benutzern erlauben, die nicht an der Domäne angemeldet sind</translation>
    </message>
    <message>
        <source>Allow authentication from non-host computers</source>
        <translation>Anmeldung auch von fremden Computern erlauben</translation>
    </message>
    <message>
        <source>Authentication server port</source>
        <translation>Port des Anmeldeservers</translation>
    </message>
    <message>
        <source>Authentication</source>
        <translation>Anmeldung</translation>
    </message>
</context>
<context>
    <name>BillingCreditDialog</name>
    <message>
        <source>&amp;No expiry date</source>
        <translation>&amp;Ohne Ablaufdatum</translation>
    </message>
    <message>
        <source>&amp;Unlimited</source>
        <translation>&amp;Unbegrenzt</translation>
    </message>
    <message>
        <source>&amp;Traffic</source>
        <translation>&amp;Datenverkehr</translation>
    </message>
    <message>
        <source>&amp;Money</source>
        <translation>&amp;Geld</translation>
    </message>
    <message>
        <source>Expiry</source>
        <translation>Ablauf</translation>
    </message>
    <message>
        <source>&amp;Expiry date:</source>
        <translation>&amp;Ablaufdatum:</translation>
    </message>
</context>
<context>
    <name>BindPage</name>
    <message>
        <source>Identify users with:</source>
        <translation>Benutzer erkennen an:</translation>
    </message>
    <message>
        <source>Windows username (requires Username Agent installed)</source>
        <translation>Windows-Benutzername (Username Agent muss installiert sein)</translation>
    </message>
    <message>
        <source>Bind</source>
        <translation>Erkennung</translation>
    </message>
</context>
<context>
    <name>BlockBox</name>
    <message>
        <source>Access is denied</source>
        <translation>Zugang verweigert</translation>
    </message>
    <message>
        <source>Access is allowed</source>
        <translation>Zugang erlaubt</translation>
    </message>
</context>
<context>
    <name>BlockCommands</name>
    <message>
        <source>The administrator has blocked these users already. Nothing was changed.</source>
        <translation>Der Administrator hat diese Benutzer bereits gesperrt. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>The administrator has not blocked any of these users. A block for a limit is lifted by a higher limit or a credit. Nothing was changed.</source>
        <translation>Der Administrator hat keinen dieser Benutzer gesperrt. Eine Sperre wegen eines Limits wird durch ein höheres Limit oder ein Guthaben aufgehoben. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>The block of these users was changed meanwhile. Nothing was undone.</source>
        <translation>Die Sperre dieser Benutzer wurde inzwischen geändert. Nichts wurde rückgängig gemacht.</translation>
    </message>
</context>
<context>
    <name>BlockStep</name>
    <message>
        <source>Access is allowed</source>
        <translation>Zugang erlaubt</translation>
    </message>
    <message>
        <source>Access is denied by the administrator</source>
        <translation>Zugang vom Administrator verweigert</translation>
    </message>
    <message>
        <source>Access is denied by the service</source>
        <translation>Zugang vom Dienst verweigert</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Zugang</translation>
    </message>
</context>
<context>
    <name>BrowseUserDialog</name>
    <message>
        <source>Browse for user</source>
        <translation>Benutzer auswählen</translation>
    </message>
    <message>
        <source>Groups and users</source>
        <translation>Gruppen und Benutzer</translation>
    </message>
    <message>
        <source>Please select username, not the groupname</source>
        <translation>Bitte wählen Sie einen Benutzer, keine Gruppe</translation>
    </message>
    <message>
        <source>Reading the user&apos;s logins...</source>
        <translation>Die Anmeldungen des Benutzers werden gelesen …</translation>
    </message>
    <message>
        <source>Whether this user has a login could not be read.</source>
        <translation>Ob dieser Benutzer eine Anmeldung hat, konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This user is no longer in the database</source>
        <translation>Dieser Benutzer ist nicht mehr in der Datenbank</translation>
    </message>
</context>
<context>
    <name>CAdministratorApp</name>
    <message>
        <source>Opening the database...</source>
        <translation>Die Datenbank wird geöffnet …</translation>
    </message>
    <message>
        <source>Registry error detected. Please reinstall the software</source>
        <translation>In den Einstellungen wurde ein Fehler gefunden. Bitte installieren Sie die Software neu</translation>
    </message>
    <message>
        <source>Failed connecting to the database. Please check the database options</source>
        <translation>Die Verbindung zur Datenbank ist fehlgeschlagen. Bitte prüfen Sie die Einstellungen der Datenbank</translation>
    </message>
</context>
<context>
    <name>CAdministratorGenOpt1st</name>
    <message>
        <source>Traffic rate</source>
        <translation>Preis des Datenverkehrs</translation>
    </message>
    <message>
        <source>Set new rate</source>
        <translation>Neuen Preis setzen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Configure</source>
        <translation>Konfigurieren</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>Used currency</source>
        <translation>Verwendete Währung</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Preis</translation>
    </message>
</context>
<context>
    <name>CAdministratorGenOptBind</name>
    <message>
        <source>Enable IP-MAC addresses correspondence control</source>
        <translation>Zuordnung von IP- und MAC-Adressen kontrollieren</translation>
    </message>
</context>
<context>
    <name>CAdministratorGenOptMisc</name>
    <message>
        <source>Require domain logon</source>
        <translation>Domänenanmeldung verlangen</translation>
    </message>
    <message>
        <source>Database update period, sec:</source>
        <translation>Aktualisierungszeitraum der Datenbank, Sek.:</translation>
    </message>
    <message>
        <source>Client deinstall</source>
        <translation>Deinstallation des Clientprogramms</translation>
    </message>
    <message>
        <source>Deinstall password</source>
        <translation>Passwort zur Deinstallation</translation>
    </message>
    <message>
        <source>Retype password</source>
        <translation>Passwort wiederholen</translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation>Verschiedenes</translation>
    </message>
    <message>
        <source>You entered different passwords. Please re-enter</source>
        <translation>Sie haben verschiedene Passwörter eingegeben. Bitte geben Sie sie neu ein</translation>
    </message>
</context>
<context>
    <name>CAdministratorGenOptNetwork</name>
    <message>
        <source>Local IP addresses</source>
        <translation>Lokale IP-Adressen</translation>
    </message>
    <message>
        <source>Add range</source>
        <translation>Bereich hinzufügen</translation>
    </message>
    <message>
        <source>Delete range</source>
        <translation>Bereich löschen</translation>
    </message>
    <message>
        <source>Excluded IP addresses</source>
        <translation>Ausgeschlossene IP-Adressen</translation>
    </message>
    <message>
        <source>Enter IP address to exclude:</source>
        <translation>Auszuschließende IP-Adresse:</translation>
    </message>
    <message>
        <source>Add address</source>
        <translation>Adresse hinzufügen</translation>
    </message>
    <message>
        <source>Delete address</source>
        <translation>Adresse löschen</translation>
    </message>
</context>
<context>
    <name>CAdministratorGroupPAccess</name>
    <message>
        <source>Block group imminently</source>
        <translation>Gruppe sofort sperren</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Zugang</translation>
    </message>
</context>
<context>
    <name>CAdministratorGroupPPage</name>
    <message>
        <source>Reading the users of other groups...</source>
        <translation>Die Benutzer anderer Gruppen werden gelesen …</translation>
    </message>
    <message>
        <source>The users of other groups could not be read.</source>
        <translation>Die Benutzer anderer Gruppen konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Corporate</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>Provider</source>
        <translation>Provider</translation>
    </message>
    <message>
        <source>No control</source>
        <translation>Keine Kontrolle</translation>
    </message>
    <message>
        <source>Remove user</source>
        <translation>Benutzer entfernen</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Beschreibung:</translation>
    </message>
    <message>
        <source>Access type:</source>
        <translation>Zugangsart:</translation>
    </message>
    <message>
        <source>Members</source>
        <translation>Mitglieder</translation>
    </message>
    <message>
        <source>Add user to the group...</source>
        <translation>Benutzer zur Gruppe hinzufügen …</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>A group&apos;s page holds at most %1 users. The others were not added.</source>
        <translation>Die Seite einer Gruppe fasst höchstens %1 Benutzer. Die anderen wurden nicht hinzugefügt.</translation>
    </message>
    <message>
        <source>Move user out of this group?</source>
        <translation>Benutzer aus dieser Gruppe entfernen?</translation>
    </message>
</context>
<context>
    <name>CAdministratorUserPAccess</name>
    <message>
        <source>Block user imminently</source>
        <translation>Benutzer sofort sperren</translation>
    </message>
    <message>
        <source>Require authentication</source>
        <translation>Anmeldung verlangen</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Zugang</translation>
    </message>
    <message>
        <source>Please choose one or both corporate type options</source>
        <translation>Bitte wählen Sie eine der Optionen der Zugangsart „Firma“ oder beide</translation>
    </message>
    <message>
        <source>Tollbrook</source>
        <translation>Tollbrook</translation>
    </message>
</context>
<context>
    <name>CAdministratorUserPPage</name>
    <message>
        <source>(Changed)</source>
        <translation>(Geändert)</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>Ändern …</translation>
    </message>
    <message>
        <source>Change IP address</source>
        <translation>IP-Adresse ändern</translation>
    </message>
    <message>
        <source>Change MAC address</source>
        <translation>MAC-Adresse ändern</translation>
    </message>
    <message>
        <source>Change group...</source>
        <translation>Gruppe ändern …</translation>
    </message>
    <message>
        <source>Full name:</source>
        <translation>Vollständiger Name:</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Beschreibung:</translation>
    </message>
    <message>
        <source>IP Address:</source>
        <translation>IP-Adresse:</translation>
    </message>
    <message>
        <source>MAC Address:</source>
        <translation>MAC-Adresse:</translation>
    </message>
    <message>
        <source>Group:</source>
        <translation>Gruppe:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Benutzername:</translation>
    </message>
    <message>
        <source>Login:</source>
        <translation>Anmeldung:</translation>
    </message>
    <message>
        <source>Workstation:</source>
        <translation>Arbeitsplatz:</translation>
    </message>
    <message>
        <source>User kind:</source>
        <translation>Benutzerart:</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Guest</source>
        <translation>Gast</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
</context>
<context>
    <name>CAdministratorView</name>
    <message>
        <source>Users</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Refill current user account</source>
        <translation>Konto des aktuellen Benutzers auffüllen</translation>
    </message>
    <message>
        <source>Change group...</source>
        <translation>Gruppe ändern …</translation>
    </message>
    <message>
        <source>Set mode/limits...</source>
        <translation>Modus/Limits setzen …</translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation>Eigenschaften …</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Do not monitor</source>
        <translation>Nicht überwachen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Select all matching</source>
        <translation>Alle passenden auswählen</translation>
    </message>
    <message>
        <source>Nobody matches.</source>
        <translation>Niemand passt dazu.</translation>
    </message>
    <message>
        <source>There are no users yet. The accounting service finds workstations by itself and lists them here, as long as the address ranges in the options hold their addresses. Or choose &quot;Import...&quot; or &quot;New user...&quot; from the menus.</source>
        <translation>Es gibt noch keine Benutzer. Der Abrechnungsdienst findet Arbeitsplätze von selbst und führt sie hier auf, sofern die Adressbereiche in den Optionen ihre Adressen enthalten. Oder wählen Sie in den Menüs „Importieren …“ oder „Neuer Benutzer …“.</translation>
    </message>
</context>
<context>
    <name>CAdministratorViewGrp</name>
    <message>
        <source>Deleting the group...</source>
        <translation>Die Gruppe wird gelöscht …</translation>
    </message>
    <message>
        <source>Renaming...</source>
        <translation>Wird umbenannt …</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Refill current group account</source>
        <translation>Konto der aktuellen Gruppe auffüllen</translation>
    </message>
    <message>
        <source>Rename group</source>
        <translation>Gruppe umbenennen</translation>
    </message>
    <message>
        <source>Enter new name for the group:</source>
        <translation>Neuer Name der Gruppe:</translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation>Eigenschaften …</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Rename...</source>
        <translation>Umbenennen …</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>There are no groups.</source>
        <translation>Es gibt keine Gruppen.</translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg1</name>
    <message>
        <source>Setup Wizard - Welcome</source>
        <translation>Einrichtungsassistent – Willkommen</translation>
    </message>
    <message>
        <source>Welcome to Tollbrook setup wizard!</source>
        <translation>Willkommen beim Einrichtungsassistenten von Tollbrook!</translation>
    </message>
    <message>
        <source>It asks for the local networks, the proxies and gateways in them, the protocols to monitor and how users are told apart. Nothing is written before you press Finish.</source>
        <translation>Er fragt nach den lokalen Netzen, den Proxys und Gateways darin, den zu überwachenden Protokollen und danach, woran Benutzer erkannt werden. Nichts wird geschrieben, bevor Sie auf „Abschließen“ drücken.</translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg2</name>
    <message>
        <source>Local ranges</source>
        <translation>Lokale Bereiche</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Setup Wizard - Local IP Addresses</source>
        <translation>Einrichtungsassistent – Lokale IP-Adressen</translation>
    </message>
    <message>
        <source>Networks of this machine</source>
        <translation>Netze dieses Rechners</translation>
    </message>
    <message>
        <source>Add %1 / %2</source>
        <translation>%1 / %2 hinzufügen</translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg3</name>
    <message>
        <source>Setup Wizard - Proxy and gateway</source>
        <translation>Einrichtungsassistent – Proxy und Gateway</translation>
    </message>
    <message>
        <source>I use proxy server or gateway</source>
        <translation>Ich verwende einen Proxyserver oder ein Gateway</translation>
    </message>
    <message>
        <source>Proxy or gateway addresses</source>
        <translation>Adressen der Proxys oder Gateways</translation>
    </message>
    <message>
        <source>Enter IP address</source>
        <translation>IP-Adresse eingeben</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg4</name>
    <message>
        <source>Protocol titles</source>
        <translation>Bezeichnungen der Protokolle</translation>
    </message>
    <message>
        <source>Enter protocol title, e.g. FTP</source>
        <translation>Bezeichnung des Protokolls, z. B. FTP</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Setup Wizard - Monitored protocols</source>
        <translation>Einrichtungsassistent – Überwachte Protokolle</translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg5</name>
    <message>
        <source>Ports for</source>
        <translation>Ports für</translation>
    </message>
    <message>
        <source>Enter TCP/IP port</source>
        <translation>TCP/IP-Port eingeben</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Setup Wizard - TCP/IP ports</source>
        <translation>Einrichtungsassistent – TCP/IP-Ports</translation>
    </message>
    <message>
        <source>Protocol titles</source>
        <translation>Bezeichnungen der Protokolle</translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg6</name>
    <message>
        <source>Setup Wizard - User binds</source>
        <translation>Einrichtungsassistent – Erkennung der Benutzer</translation>
    </message>
    <message>
        <source>Identify users with:</source>
        <translation>Benutzer erkennen an:</translation>
    </message>
    <message>
        <source>NT/2000 username (requires Username Agent installed)</source>
        <translation>NT/2000-Benutzername (Username Agent muss installiert sein)</translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg7</name>
    <message>
        <source>Setup Wizard - Finish</source>
        <translation>Einrichtungsassistent – Abschluss</translation>
    </message>
    <message>
        <source>The setup is complete. Press Finish to save it, then you should restart the service so that new parameters are enforced.</source>
        <translation>Die Einrichtung ist vollständig. Drücken Sie auf „Abschließen“, um sie zu speichern; danach sollten Sie den Dienst neu starten, damit die neuen Einstellungen wirksam werden.</translation>
    </message>
</context>
<context>
    <name>CSplitterFrame</name>
    <message>
        <source>It was not kept that the console has been started.</source>
        <translation>Dass die Konsole gestartet wurde, konnte nicht festgehalten werden.</translation>
    </message>
    <message>
        <source>The lists could not be read; the failed statements tell why.</source>
        <translation>Die Listen konnten nicht gelesen werden; die fehlgeschlagenen Anweisungen sagen, warum.</translation>
    </message>
    <message>
        <source>The first %1 of %2 %3 are listed.</source>
        <translation>Aufgeführt sind die ersten %1 von %2 %3.</translation>
    </message>
    <message>
        <source>users</source>
        <translation>Benutzern</translation>
    </message>
    <message>
        <source>groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Tollbrook Administrator</source>
        <translation>Tollbrook Administrator</translation>
    </message>
</context>
<context>
    <name>ChangeGroupDialog</name>
    <message>
        <source>Adding the group...</source>
        <translation>Die Gruppe wird hinzugefügt …</translation>
    </message>
    <message>
        <source>Deleting the group...</source>
        <translation>Die Gruppe wird gelöscht …</translation>
    </message>
    <message>
        <source>Reading the group&apos;s name...</source>
        <translation>Der Name der Gruppe wird gelesen …</translation>
    </message>
    <message>
        <source>The group&apos;s name could not be read.</source>
        <translation>Der Name der Gruppe konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Add group...</source>
        <translation>Gruppe hinzufügen …</translation>
    </message>
    <message>
        <source>Delete group</source>
        <translation>Gruppe löschen</translation>
    </message>
    <message>
        <source>Change group</source>
        <translation>Gruppe ändern</translation>
    </message>
    <message>
        <source>Select one of the groups:</source>
        <translation>Wählen Sie eine der Gruppen:</translation>
    </message>
    <message>
        <source>Add group</source>
        <translation>Gruppe hinzufügen</translation>
    </message>
    <message>
        <source>Enter the name of the group:</source>
        <translation>Name der Gruppe:</translation>
    </message>
    <message>
        <source>You are going to remove the group. Continue?</source>
        <translation>Sie sind dabei, die Gruppe zu entfernen. Fortfahren?</translation>
    </message>
    <message>
        <source>You can not delete &apos;Everybody&apos; group</source>
        <translation>Die Gruppe „Everybody“ kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Select group to change, please</source>
        <translation>Bitte wählen Sie die neue Gruppe</translation>
    </message>
    <message>
        <source>The groups could not be read.</source>
        <translation>Die Gruppen konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Reading the groups...</source>
        <translation>Die Gruppen werden gelesen …</translation>
    </message>
    <message>
        <source>Users: %1</source>
        <translation>Benutzer: %1</translation>
    </message>
</context>
<context>
    <name>ChangeIpDialog</name>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Change IP Address</source>
        <translation>IP-Adresse ändern</translation>
    </message>
    <message>
        <source>IP address:</source>
        <translation>IP-Adresse:</translation>
    </message>
    <message>
        <source>Please enter full IP address</source>
        <translation>Bitte geben Sie die vollständige IP-Adresse ein</translation>
    </message>
</context>
<context>
    <name>ChangeMacDialog</name>
    <message>
        <source>Change MAC address</source>
        <translation>MAC-Adresse ändern</translation>
    </message>
    <message>
        <source>MAC address:</source>
        <translation>MAC-Adresse:</translation>
    </message>
    <message>
        <source>MAC address can contain only 12 symbols. Please re-enter the address</source>
        <translation>Eine MAC-Adresse enthält nur 12 Zeichen. Bitte geben Sie die Adresse neu ein</translation>
    </message>
</context>
<context>
    <name>Check</name>
    <message>
        <source>The data source &quot;%1&quot; cannot be opened: %2</source>
        <translation>Die Datenquelle „%1“ kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>A check of &quot;%1&quot; failed: %2</source>
        <translation>Eine Prüfung von „%1“ ist fehlgeschlagen: %2</translation>
    </message>
</context>
<context>
    <name>ConfigStore</name>
    <message>
        <source>cannot be written: it does not take the value &quot;%1&quot;</source>
        <translation>kann nicht geschrieben werden: sie nimmt den Wert „%1“ nicht an</translation>
    </message>
</context>
<context>
    <name>Controls</name>
    <message>
        <source>This could not be read. What is shown may be incomplete or out of date.</source>
        <translation>Dies konnte nicht gelesen werden. Was angezeigt wird, kann unvollständig oder veraltet sein.</translation>
    </message>
</context>
<context>
    <name>CreateLoginDialog</name>
    <message>
        <source>Login properties</source>
        <translation>Eigenschaften der Anmeldung</translation>
    </message>
    <message>
        <source>Create login</source>
        <translation>Anmeldung anlegen</translation>
    </message>
    <message>
        <source>Allow access to personal statistics</source>
        <translation>Zugang zur eigenen Statistik erlauben</translation>
    </message>
    <message>
        <source>This is a guest user</source>
        <translation>Dies ist ein Gastbenutzer</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Anmeldung</translation>
    </message>
    <message>
        <source>Login name:</source>
        <translation>Anmeldename:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Passwort:</translation>
    </message>
    <message>
        <source>Re-type password:</source>
        <translation>Passwort wiederholen:</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Bind this login to existing user</source>
        <translation>Anmeldung einem vorhandenen Benutzer zuordnen</translation>
    </message>
    <message>
        <source>Bound user</source>
        <translation>Zugeordneter Benutzer</translation>
    </message>
    <message>
        <source>Browse for user...</source>
        <translation>Benutzer auswählen …</translation>
    </message>
    <message>
        <source>Limit the workstation</source>
        <translation>Arbeitsplatz einschränken</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>Keine Einschränkung</translation>
    </message>
    <message>
        <source>By IP address</source>
        <translation>Nach IP-Adresse</translation>
    </message>
    <message>
        <source>By MAC address</source>
        <translation>Nach MAC-Adresse</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation>MAC-Adresse</translation>
    </message>
    <message>
        <source>12 characters</source>
        <translation>12 Zeichen</translation>
    </message>
    <message>
        <source>Reading the users...</source>
        <translation>Die Benutzer werden gelesen …</translation>
    </message>
    <message>
        <source>The users could not be read.</source>
        <translation>Die Benutzer konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This user already has login. Please select another user</source>
        <translation>Dieser Benutzer hat bereits eine Anmeldung. Bitte wählen Sie einen anderen Benutzer</translation>
    </message>
    <message>
        <source>unchanged</source>
        <translation>unverändert</translation>
    </message>
</context>
<context>
    <name>Credit</name>
    <message>
        <source>The access type of this user has been changed to &quot;%1&quot; meanwhile. Nothing was changed. Please open the window again to go on.</source>
        <translation>Die Zugangsart dieses Benutzers wurde inzwischen zu „%1“ geändert. Gespeichert wurde nichts. Bitte öffnen Sie das Fenster erneut, um fortzufahren.</translation>
    </message>
    <message>
        <source>The access type of this group has been changed to &quot;%1&quot; meanwhile. Nothing was changed. Please open the window again to go on.</source>
        <translation>Die Zugangsart dieser Gruppe wurde inzwischen zu „%1“ geändert. Gespeichert wurde nichts. Bitte öffnen Sie das Fenster erneut, um fortzufahren.</translation>
    </message>
    <message>
        <source>This user is no longer in the database. Nothing was changed</source>
        <translation>Dieser Benutzer ist nicht mehr in der Datenbank. Nichts wurde geändert</translation>
    </message>
    <message>
        <source>This group is no longer in the database. Nothing was changed</source>
        <translation>Diese Gruppe ist nicht mehr in der Datenbank. Nichts wurde geändert</translation>
    </message>
</context>
<context>
    <name>CreditColumns</name>
    <message>
        <source>N</source>
        <comment>the number of a row</comment>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Date/Time</source>
        <translation>Datum/Zeit</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <comment>of the day</comment>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Credit</source>
        <translation>Guthaben</translation>
    </message>
    <message>
        <source>Used</source>
        <translation>Verbraucht</translation>
    </message>
    <message>
        <source>Used Mb</source>
        <translation>Verbr. MB</translation>
    </message>
    <message>
        <source>Used cash</source>
        <translation>Verbr. Geld</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Saldo</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Exp.date</source>
        <translation>Ablauf</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Used, Mb</source>
        <translation>Verbraucht, MB</translation>
    </message>
    <message>
        <source>Expiry date</source>
        <translation>Ablaufdatum</translation>
    </message>
</context>
<context>
    <name>CreditDialog</name>
    <message>
        <source>Add credit</source>
        <translation>Guthaben hinzufügen</translation>
    </message>
    <message>
        <source>Credit</source>
        <translation>Guthaben</translation>
    </message>
    <message>
        <source>&amp;Amount:</source>
        <translation>&amp;Menge:</translation>
    </message>
</context>
<context>
    <name>CreditEntry</name>
    <message>
        <source>Please enter an amount above 0 and up to 1000000000</source>
        <translation>Bitte geben Sie eine Menge über 0 und bis 1000000000 ein</translation>
    </message>
    <message>
        <source>The currency has no valid rate. Please correct it on the Tariff page of the options</source>
        <translation>Die Währung hat keinen gültigen Kurs. Bitte berichtigen Sie ihn auf der Seite „Tarif“ der Einstellungen</translation>
    </message>
    <message>
        <source>The amount is too small at the currency&apos;s rate. Please enter a larger one</source>
        <translation>Beim Kurs der Währung ist die Menge zu klein. Bitte geben Sie eine größere ein</translation>
    </message>
    <message>
        <source>The expiry day has already passed. Please choose another day</source>
        <translation>Der Tag des Ablaufs ist schon vorbei. Bitte wählen Sie einen anderen Tag</translation>
    </message>
</context>
<context>
    <name>CreditList</name>
    <message>
        <source>Unlim</source>
        <translation>unbegr.</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Unlimited</source>
        <translation>Unbegrenzt</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>Abgelaufen</translation>
    </message>
</context>
<context>
    <name>CreditTable</name>
    <message>
        <source>Credits</source>
        <translation>Guthaben</translation>
    </message>
</context>
<context>
    <name>Currency</name>
    <message>
        <source>units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>Mbytes</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>hr</source>
        <translation>Std.</translation>
    </message>
</context>
<context>
    <name>CurrencyDialog</name>
    <message>
        <source>Add currency</source>
        <translation>Währung hinzufügen</translation>
    </message>
    <message>
        <source>Symbol (e.g. USD) :</source>
        <translation>Symbol (z. B. USD):</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Bezeichnung</translation>
    </message>
    <message>
        <source>Rate (currency/units)</source>
        <translation>Kurs (Währung/Einheiten)</translation>
    </message>
</context>
<context>
    <name>CurrencyEditor</name>
    <message>
        <source>Currencies</source>
        <translation>Währungen</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Bezeichnung</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Kurs</translation>
    </message>
    <message>
        <source>Enter the rate please</source>
        <translation>Bitte geben Sie den Preis ein</translation>
    </message>
    <message>
        <source>units per Mb</source>
        <translation>Einheiten je MB</translation>
    </message>
    <message>
        <source>Rate</source>
        <comment>the price of traffic</comment>
        <translation>Tarif</translation>
    </message>
</context>
<context>
    <name>CurrencySettings</name>
    <message>
        <source>Enter the currency symbol please</source>
        <translation>Bitte geben Sie das Symbol der Währung ein</translation>
    </message>
    <message>
        <source>Enter the currency rate please</source>
        <translation>Bitte geben Sie den Kurs der Währung ein</translation>
    </message>
    <message>
        <source>Enter the currency rate as a number above 0 with at most %1 decimals please</source>
        <translation>Bitte geben Sie den Kurs der Währung als Zahl über 0 mit höchstens %1 Nachkommastellen ein</translation>
    </message>
    <message>
        <source>You can not delete base currency</source>
        <translation>Die Basiswährung kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>You can not edit base currency</source>
        <translation>Die Basiswährung kann nicht bearbeitet werden</translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation>Wählen Sie den Eintrag, der gelöscht werden soll</translation>
    </message>
    <message>
        <source>Select currency to edit</source>
        <translation>Wählen Sie die Währung, die bearbeitet werden soll</translation>
    </message>
    <message>
        <source>Select currency to set</source>
        <translation>Wählen Sie die Währung, die gesetzt werden soll</translation>
    </message>
    <message>
        <source>units</source>
        <translation>Einheiten</translation>
    </message>
</context>
<context>
    <name>DataSource</name>
    <message>
        <source>There is no section [%1] in odbc.ini: add one for the database that the setting &quot;bill dsn&quot; names.</source>
        <translation>In odbc.ini gibt es keinen Abschnitt [%1]: Legen Sie einen für die Datenbank an, die die Einstellung „bill dsn“ nennt.</translation>
    </message>
    <message>
        <source>The section [%1] of odbc.ini names no Database.</source>
        <translation>Der Abschnitt [%1] in odbc.ini nennt keine Datenbank (Database).</translation>
    </message>
    <message>
        <source>The section [%1] of odbc.ini names &quot;%2&quot; as its Database, and there is no such file.</source>
        <translation>Der Abschnitt [%1] von odbc.ini nennt „%2“ als Database, und diese Datei gibt es nicht.</translation>
    </message>
</context>
<context>
    <name>DayField</name>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Choose from a calendar (Alt+Down)</source>
        <translation>Aus einem Kalender wählen (Alt+Abwärts)</translation>
    </message>
    <message>
        <source>Please enter a day, as in %1.</source>
        <translation>Bitte geben Sie einen Tag ein, wie zum Beispiel %1.</translation>
    </message>
</context>
<context>
    <name>DefaultProfilePage</name>
    <message>
        <source>Block imminently</source>
        <translation>Sofort sperren</translation>
    </message>
    <message>
        <source>Access control type</source>
        <translation>Art der Zugangskontrolle</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation>Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Traffic limit. Mb</source>
        <translation>Datenlimit, MB</translation>
    </message>
    <message>
        <source>Time limit, hr</source>
        <translation>Zeitlimit, Std.</translation>
    </message>
    <message>
        <source>Default user profile</source>
        <translation>Standard-Benutzerprofil</translation>
    </message>
    <message>
        <source>Please select one of the corporate type access options</source>
        <translation>Bitte wählen Sie eine der Optionen der Zugangsart „Firma“</translation>
    </message>
</context>
<context>
    <name>DirectConnection</name>
    <message>
        <source>The database engine &quot;%1&quot; is not supported.</source>
        <translation>Das Datenbanksystem „%1“ wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>There is no data source of this name.</source>
        <translation>Es gibt keine Datenquelle dieses Namens.</translation>
    </message>
</context>
<context>
    <name>Engine</name>
    <message>
        <source>data source &quot;%1&quot;: %2</source>
        <translation>Datenquelle „%1“: %2</translation>
    </message>
</context>
<context>
    <name>ExclusionEditor</name>
    <message>
        <source>IP Address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation>Wählen Sie den Eintrag, der gelöscht werden soll</translation>
    </message>
</context>
<context>
    <name>Exclusions</name>
    <message>
        <source>IP-Address %1 is already in the active database. You can not exclude IP-addresses that are in the database. Unless you remove this user Tollbrook will not be able to process excluded address. Remove it now?</source>
        <translation>Die IP-Adresse %1 ist bereits in der aktiven Datenbank. IP-Adressen, die in der Datenbank sind, können nicht ausgeschlossen werden. Solange Sie diesen Benutzer nicht entfernen, kann Tollbrook die ausgeschlossene Adresse nicht verarbeiten. Jetzt entfernen?</translation>
    </message>
    <message>
        <source>Enter IP address please</source>
        <translation>Bitte geben Sie eine IP-Adresse ein</translation>
    </message>
    <message>
        <source>This IP address has been already excluded</source>
        <translation>Diese IP-Adresse ist bereits ausgeschlossen</translation>
    </message>
</context>
<context>
    <name>Failure</name>
    <message>
        <source>The database refused it.</source>
        <translation>Die Datenbank hat es abgelehnt.</translation>
    </message>
    <message>
        <source>Another program holds the database.</source>
        <translation>Ein anderes Programm hält die Datenbank fest.</translation>
    </message>
    <message>
        <source>Somebody else changed the same at that moment.</source>
        <translation>Jemand anders hat im selben Augenblick dasselbe geändert.</translation>
    </message>
    <message>
        <source>There is no connection to the database.</source>
        <translation>Es besteht keine Verbindung zur Datenbank.</translation>
    </message>
    <message>
        <source>The database takes no changes now.</source>
        <translation>Die Datenbank nimmt zurzeit keine Änderungen an.</translation>
    </message>
    <message>
        <source>The database does not answer.</source>
        <translation>Die Datenbank antwortet nicht.</translation>
    </message>
    <message>
        <source>It was cancelled.</source>
        <translation>Es wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The connection to the database was lost while it was being written.</source>
        <translation>Die Verbindung zur Datenbank ging beim Schreiben verloren.</translation>
    </message>
    <message>
        <source>This program cannot work with the database.</source>
        <translation>Mit dieser Datenbank kann dieses Programm nicht arbeiten.</translation>
    </message>
    <message>
        <source>A file could not be written.</source>
        <translation>Eine Datei konnte nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>FailuresDialog</name>
    <message>
        <source>Failed statements</source>
        <translation>Fehlgeschlagene Anweisungen</translation>
    </message>
    <message>
        <source>Failed statements, newest first</source>
        <translation>Fehlgeschlagene Anweisungen, neueste zuerst</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Statement</source>
        <translation>Anweisung</translation>
    </message>
    <message>
        <source>SQLSTATE</source>
        <translation>SQLSTATE</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>&amp;Copy all</source>
        <translation>Alles &amp;kopieren</translation>
    </message>
    <message>
        <source>Failed since the program started: %1. Listed, newest first: %2.</source>
        <translation>Fehlgeschlagen seit dem Programmstart: %1. Aufgeführt, neueste zuerst: %2.</translation>
    </message>
</context>
<context>
    <name>FilterCompleter</name>
    <message>
        <source>Words of a filter</source>
        <translation>Wörter eines Filters</translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <source>Found users</source>
        <translation>Gefundene Benutzer</translation>
    </message>
    <message>
        <source>Any part of a name, workstation, description, address, group or login; also group:NAME, mode:NAME, blocked, over, 10.1.2.0/24</source>
        <translation>Ein beliebiger Teil von Name, Arbeitsplatz, Beschreibung, Adresse, Gruppe oder Anmeldung; auch group:NAME, mode:NAME, blocked, over, 10.1.2.0/24</translation>
    </message>
    <message>
        <source>Saved filters</source>
        <translation>Gespeicherte Filter</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Save what is typed under a name, or choose what was saved</source>
        <translation>Das Eingegebene unter einem Namen speichern oder Gespeichertes wählen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>The users could not be searched.</source>
        <translation>Die Benutzer konnten nicht durchsucht werden.</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Suche läuft …</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Save filter...</source>
        <translation>Filter &amp;speichern …</translation>
    </message>
    <message>
        <source>Save filter</source>
        <translation>Filter speichern</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Enter a name for the filter.</source>
        <translation>Geben Sie einen Namen für den Filter ein.</translation>
    </message>
    <message>
        <source>The filters could not be kept.</source>
        <translation>Die Filter konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Find user</source>
        <translation>Benutzer suchen</translation>
    </message>
    <message>
        <source>Find user:</source>
        <translation>Benutzer suchen:</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Find the first user whose first column begins with this text</source>
        <translation>Sucht den ersten Benutzer, dessen erste Spalte mit diesem Text beginnt</translation>
    </message>
    <message>
        <source>Enter search criteria please</source>
        <translation>Bitte geben Sie einen Suchtext ein</translation>
    </message>
    <message>
        <source>No user found</source>
        <translation>Kein Benutzer gefunden</translation>
    </message>
    <message>
        <source>Tollbrook Administrator</source>
        <translation>Tollbrook Administrator</translation>
    </message>
    <message>
        <source>1 user chosen</source>
        <translation>1 Benutzer ausgewählt</translation>
    </message>
    <message>
        <source>%1 users chosen</source>
        <translation>%1 Benutzer ausgewählt</translation>
    </message>
    <message>
        <source>There is a filter with this name. Replace it?</source>
        <translation>Es gibt einen Filter mit diesem Namen. Ersetzen?</translation>
    </message>
    <message>
        <source>Remove this filter?</source>
        <translation>Diesen Filter entfernen?</translation>
    </message>
</context>
<context>
    <name>FrameMenus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Purge database...</source>
        <translation>Datenbank be&amp;reinigen …</translation>
    </message>
    <message>
        <source>Remove accumulated records</source>
        <translation>Angesammelte Datensätze entfernen</translation>
    </message>
    <message>
        <source>&amp;Export list...</source>
        <translation>Liste &amp;exportieren …</translation>
    </message>
    <message>
        <source>Save all users that match as a file</source>
        <translation>Alle passenden Benutzer als Datei speichern</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Quit the program</source>
        <translation>Das Programm beenden</translation>
    </message>
    <message>
        <source>&amp;User</source>
        <translation>&amp;Benutzer</translation>
    </message>
    <message>
        <source>Display user or group properties</source>
        <translation>Eigenschaften des Benutzers oder der Gruppe anzeigen</translation>
    </message>
    <message>
        <source>&amp;Properties...</source>
        <translation>&amp;Eigenschaften …</translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation>Eigenschaften …</translation>
    </message>
    <message>
        <source>&amp;Account...</source>
        <translation>&amp;Konto …</translation>
    </message>
    <message>
        <source>Change &amp;group...</source>
        <translation>&amp;Gruppe ändern …</translation>
    </message>
    <message>
        <source>Do not &amp;monitor</source>
        <translation>&amp;Nicht überwachen</translation>
    </message>
    <message>
        <source>Move to the unmonitored list</source>
        <translation>In die Liste der nicht überwachten verschieben</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Delete user or the group</source>
        <translation>Benutzer oder Gruppe löschen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Re&amp;fresh </source>
        <translation>&amp;Aktualisieren </translation>
    </message>
    <message>
        <source>Read both lists anew</source>
        <translation>Beide Listen neu lesen</translation>
    </message>
    <message>
        <source>&amp;Columns</source>
        <translation>&amp;Spalten</translation>
    </message>
    <message>
        <source>&amp;Sort by</source>
        <translation>Sortieren &amp;nach</translation>
    </message>
    <message>
        <source>Usernames</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Workstations</source>
        <translation>Arbeitsplatz</translation>
    </message>
    <message>
        <source>Full names</source>
        <translation>Vollständiger Name</translation>
    </message>
    <message>
        <source>No auto refresh</source>
        <translation>Nicht automatisch aktualisieren</translation>
    </message>
    <message>
        <source>Each minute</source>
        <translation>Jede Minute</translation>
    </message>
    <message>
        <source>Each 3 minutes</source>
        <translation>Alle 3 Minuten</translation>
    </message>
    <message>
        <source>Each 5 minutes</source>
        <translation>Alle 5 Minuten</translation>
    </message>
    <message>
        <source>Each 10 minutes</source>
        <translation>Alle 10 Minuten</translation>
    </message>
    <message>
        <source>Custom period...</source>
        <translation>Eigenes Intervall …</translation>
    </message>
    <message>
        <source>&amp;Configure</source>
        <translation>&amp;Konfiguration</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Unmonitored</source>
        <translation>&amp;Nicht überwachte Benutzer</translation>
    </message>
    <message>
        <source>Bring users back under monitoring</source>
        <translation>Benutzer wieder überwachen</translation>
    </message>
    <message>
        <source>&amp;Login manager</source>
        <translation>&amp;Anmeldungsverwaltung</translation>
    </message>
    <message>
        <source>Logins for user authentication</source>
        <translation>Anmeldungen, mit denen sich Benutzer ausweisen</translation>
    </message>
    <message>
        <source>&amp;Network adapter</source>
        <translation>Netzwerk&amp;karte</translation>
    </message>
    <message>
        <source>Select network card Tollbrook will work with</source>
        <translation>Netzwerkkarte wählen, mit der Tollbrook arbeitet</translation>
    </message>
    <message>
        <source>Global options</source>
        <translation>Globale Einstellungen</translation>
    </message>
    <message>
        <source>Display global options</source>
        <translation>Globale Einstellungen anzeigen</translation>
    </message>
    <message>
        <source>Choose and show a report</source>
        <translation>Einen Bericht wählen und anzeigen</translation>
    </message>
    <message>
        <source>Reports...</source>
        <translation>Berichte …</translation>
    </message>
    <message>
        <source>&amp;Reports...</source>
        <translation>Be&amp;richte …</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Help topics</source>
        <translation>&amp;Hilfethemen</translation>
    </message>
    <message>
        <source>Open the user guide</source>
        <translation>Das Benutzerhandbuch öffnen</translation>
    </message>
    <message>
        <source>Setup &amp;wizard...</source>
        <translation>&amp;Einrichtungsassistent …</translation>
    </message>
    <message>
        <source>Starts the setup wizard</source>
        <translation>Startet den Einrichtungsassistenten</translation>
    </message>
    <message>
        <source>&amp;About Tollbrook Administrator</source>
        <translation>Ü&amp;ber Tollbrook Administrator</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>P&amp;rint list...</source>
        <translation>Liste &amp;drucken …</translation>
    </message>
    <message>
        <source>Print all users that match</source>
        <translation>Alle passenden Benutzer drucken</translation>
    </message>
    <message>
        <source>&amp;Select all matching</source>
        <translation>Alle &amp;passenden auswählen</translation>
    </message>
    <message>
        <source>Choose all users that match, also those that are not listed</source>
        <translation>Alle passenden Benutzer auswählen, auch die nicht aufgeführten</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren …</translation>
    </message>
    <message>
        <source>Add and change users from a file</source>
        <translation>Benutzer aus einer Datei anlegen und ändern</translation>
    </message>
    <message>
        <source>Export &amp;users...</source>
        <translation>Ben&amp;utzer exportieren …</translation>
    </message>
    <message>
        <source>Save all users as a file that can be imported</source>
        <translation>Alle Benutzer als Datei speichern, die importiert werden kann</translation>
    </message>
    <message>
        <source>&amp;New user...</source>
        <translation>&amp;Neuer Benutzer …</translation>
    </message>
    <message>
        <source>Add a single user</source>
        <translation>Einen einzelnen Benutzer anlegen</translation>
    </message>
</context>
<context>
    <name>FrameStatusBar</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Undo &quot;%1&quot;</source>
        <translation>„%1“ rückgängig machen</translation>
    </message>
    <message>
        <source>Takes it back for the users that it changed (Ctrl+Z)</source>
        <translation>Nimmt es bei den Benutzern zurück, die es geändert hat (Strg+Z)</translation>
    </message>
    <message>
        <source>Total users: 12</source>
        <translation>Benutzer gesamt: 12</translation>
    </message>
    <message>
        <source>A double click controls the service</source>
        <translation>Ein Doppelklick steuert den Dienst</translation>
    </message>
    <message>
        <source>Without a connection, a double click reconnects</source>
        <translation>Besteht keine Verbindung, stellt ein Doppelklick sie her</translation>
    </message>
    <message>
        <source>Database statements that failed since the program started</source>
        <translation>Datenbankanweisungen, die seit dem Programmstart fehlgeschlagen sind</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Active users: %1 </source>
        <translation>Aktive Benutzer: %1 </translation>
    </message>
    <message>
        <source>Active users: ? </source>
        <translation>Aktive Benutzer: ? </translation>
    </message>
    <message>
        <source>The accounting service runs</source>
        <translation>Der Abrechnungsdienst läuft</translation>
    </message>
    <message>
        <source>The accounting service does not run</source>
        <translation>Der Abrechnungsdienst läuft nicht</translation>
    </message>
    <message>
        <source>Connected to the service</source>
        <translation>Mit dem Dienst verbunden</translation>
    </message>
    <message>
        <source>Not connected to the service</source>
        <translation>Nicht mit dem Dienst verbunden</translation>
    </message>
    <message>
        <source>Failed statements: %1</source>
        <translation>Fehlgeschlagene Anweisungen: %1</translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>Database update period, sec</source>
        <translation>Aktualisierungszeitraum der Datenbank, Sek.</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Please enter an integer.</source>
        <translation>Bitte geben Sie eine ganze Zahl ein.</translation>
    </message>
</context>
<context>
    <name>GlobalOptions</name>
    <message>
        <source>Options</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>GroupGone</name>
    <message>
        <source>The group &quot;Everybody&quot;, into which users would be moved, has been deleted. Nothing was changed.</source>
        <translation>Die Gruppe „Everybody“, in die Benutzer verschoben würden, wurde gelöscht. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>The chosen group has been deleted meanwhile. Nothing was changed.</source>
        <translation>Die gewählte Gruppe wurde inzwischen gelöscht. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>This group has been deleted meanwhile. Nothing was changed.</source>
        <translation>Diese Gruppe wurde inzwischen gelöscht. Nichts wurde geändert.</translation>
    </message>
</context>
<context>
    <name>GroupKeys</name>
    <message>
        <source>Group %1, called &quot;%2&quot; as another one is, is named &quot;%3&quot;.</source>
        <translation>Die Gruppe %1, die wie eine andere „%2“ heißt, wird „%3“ genannt.</translation>
    </message>
</context>
<context>
    <name>GroupListModel</name>
    <message>
        <source>Group Name</source>
        <translation>Gruppenname</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Zugang</translation>
    </message>
</context>
<context>
    <name>GroupModel</name>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
</context>
<context>
    <name>GroupName</name>
    <message>
        <source>Please enter the name of the group</source>
        <translation>Bitte geben Sie den Namen der Gruppe ein</translation>
    </message>
    <message>
        <source>The group with this name already exists!</source>
        <translation>Es gibt bereits eine Gruppe dieses Namens!</translation>
    </message>
</context>
<context>
    <name>GroupOutline</name>
    <message>
        <source>Groups of the report</source>
        <translation>Gruppen des Berichts</translation>
    </message>
</context>
<context>
    <name>GroupPlan</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Group of %1</source>
        <translation>Gruppe von %1</translation>
    </message>
</context>
<context>
    <name>GuidedUpgrade</name>
    <message>
        <source>Making the backup...</source>
        <translation>Die Sicherung wird angelegt …</translation>
    </message>
    <message>
        <source>The backup is in %1.</source>
        <translation>Die Sicherung liegt in %1.</translation>
    </message>
    <message>
        <source>The backup was not made: %1</source>
        <translation>Die Sicherung wurde nicht angelegt: %1</translation>
    </message>
</context>
<context>
    <name>HelpViewer</name>
    <message>
        <source>User guide</source>
        <translation>Benutzerhandbuch</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>User guide</source>
        <translation>Benutzerhandbuch</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vorwärts</translation>
    </message>
    <message>
        <source>&amp;Search:</source>
        <translation>&amp;Suchen:</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>The user guide is not installed</source>
        <translation>Das Benutzerhandbuch ist nicht installiert</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Unlimited</source>
        <translation>Unbegrenzt</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>Abgelaufen</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Mbytes</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>Money</source>
        <translation>Geld</translation>
    </message>
    <message>
        <source>Unlim</source>
        <translation>unbegr.</translation>
    </message>
    <message>
        <source>hr</source>
        <translation>Std.</translation>
    </message>
    <message>
        <source>All records</source>
        <translation>Alle Datensätze</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Last week</source>
        <translation>Letzte Woche</translation>
    </message>
    <message>
        <source>Last month</source>
        <translation>Letzter Monat</translation>
    </message>
</context>
<context>
    <name>IdentModeBox</name>
    <message>
        <source>Each workstation needs an address that stays the same.</source>
        <translation>Jeder Arbeitsplatz braucht eine Adresse, die gleich bleibt.</translation>
    </message>
    <message>
        <source>The workstations must not be behind a further router.</source>
        <translation>Die Arbeitsplätze dürfen nicht hinter einem weiteren Router liegen.</translation>
    </message>
    <message>
        <source>Each user needs a login, and each workstation the agent.</source>
        <translation>Jeder Benutzer braucht eine Anmeldung und jeder Arbeitsplatz den Agenten.</translation>
    </message>
    <message>
        <source>IP-address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>MAC-address</source>
        <translation>MAC-Adresse</translation>
    </message>
</context>
<context>
    <name>Import</name>
    <message>
        <source>The new user &quot;%1&quot; cannot be found by its name. Nothing was imported.</source>
        <translation>Der neue Benutzer „%1“ ist unter seinem Namen nicht zu finden. Es wurde nichts importiert.</translation>
    </message>
    <message>
        <source>The user &quot;%1&quot;, or what it is to get, was changed meanwhile. Nothing was written. Please look again.</source>
        <translation>Der Benutzer „%1“ oder das, was er bekommen soll, wurde inzwischen geändert. Es wurde nichts geschrieben. Bitte sehen Sie noch einmal nach.</translation>
    </message>
</context>
<context>
    <name>ImportClaims</name>
    <message>
        <source>The IP address %1 is the one of the user &quot;%2&quot;</source>
        <translation>Die IP-Adresse %1 gehört dem Benutzer „%2“</translation>
    </message>
    <message>
        <source>The MAC address %1 is the one of the user &quot;%2&quot;</source>
        <translation>Die MAC-Adresse %1 gehört dem Benutzer „%2“</translation>
    </message>
    <message>
        <source>Line %1 names the same user</source>
        <translation>Zeile %1 nennt denselben Benutzer</translation>
    </message>
    <message>
        <source>Line %1 has the same IP address</source>
        <translation>Zeile %1 hat dieselbe IP-Adresse</translation>
    </message>
    <message>
        <source>Line %1 has the same MAC address</source>
        <translation>Zeile %1 hat dieselbe MAC-Adresse</translation>
    </message>
    <message>
        <source>Line %1 has the same login</source>
        <translation>Zeile %1 hat dieselbe Anmeldung</translation>
    </message>
</context>
<context>
    <name>ImportColumn</name>
    <message>
        <source>User name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Full name</source>
        <translation>Vollständiger Name</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Workstation</source>
        <translation>Arbeitsplatz</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation>MAC-Adresse</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Create group</source>
        <translation>Gruppe anlegen</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Zugang</translation>
    </message>
    <message>
        <source>Traffic limit</source>
        <translation>Datenlimit</translation>
    </message>
    <message>
        <source>Time limit</source>
        <translation>Zeitlimit</translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation>Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>Blocked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Login required</source>
        <translation>Anmeldung erforderlich</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Anmeldung</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Traffic credit</source>
        <translation>Guthaben an Datenverkehr</translation>
    </message>
    <message>
        <source>Money credit</source>
        <translation>Guthaben an Geld</translation>
    </message>
    <message>
        <source>Credit expires</source>
        <translation>Guthaben läuft ab</translation>
    </message>
</context>
<context>
    <name>ImportDialog</name>
    <message>
        <source>The file was not imported.</source>
        <translation>Die Datei wurde nicht importiert.</translation>
    </message>
    <message>
        <source>Reading the file...</source>
        <translation>Die Datei wird gelesen …</translation>
    </message>
    <message>
        <source>%1, read as %2.</source>
        <translation>%1, gelesen als %2.</translation>
    </message>
    <message>
        <source>Please see whether letters with accents are right.</source>
        <translation>Bitte prüfen Sie, ob Umlaute und Akzente stimmen.</translation>
    </message>
    <message>
        <source>Columns that are not known and left out: %1.</source>
        <translation>Unbekannte Spalten, die ausgelassen werden: %1.</translation>
    </message>
    <message>
        <source>Refused rows are left out: %1.</source>
        <translation>Abgelehnte Zeilen, die ausgelassen werden: %1.</translation>
    </message>
    <message>
        <source>Groups that are made: %1.</source>
        <translation>Gruppen, die angelegt werden: %1.</translation>
    </message>
    <message>
        <source>There is nothing to import.</source>
        <translation>Es gibt nichts zu importieren.</translation>
    </message>
    <message>
        <source>Import users</source>
        <translation>Benutzer importieren</translation>
    </message>
    <message>
        <source>Rows of the file</source>
        <translation>Zeilen der Datei</translation>
    </message>
    <message>
        <source>There are no such rows.</source>
        <translation>Es gibt keine solchen Zeilen.</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>&amp;Show:</source>
        <translation>An&amp;zeigen:</translation>
    </message>
    <message>
        <source>All rows (%1)</source>
        <translation>Alle Zeilen (%1)</translation>
    </message>
    <message>
        <source>Only new ones (%1)</source>
        <translation>Nur neue (%1)</translation>
    </message>
    <message>
        <source>Only changed ones (%1)</source>
        <translation>Nur geänderte (%1)</translation>
    </message>
    <message>
        <source>Only unchanged ones (%1)</source>
        <translation>Nur unveränderte (%1)</translation>
    </message>
    <message>
        <source>Only refused ones (%1)</source>
        <translation>Nur abgelehnte (%1)</translation>
    </message>
    <message>
        <source>Importing the users...</source>
        <translation>Die Benutzer werden importiert …</translation>
    </message>
    <message>
        <source>Users added: %1. Users changed: %2.</source>
        <translation>Angelegte Benutzer: %1. Geänderte Benutzer: %2.</translation>
    </message>
    <message>
        <source>Tables (*.csv *.txt *.tsv)</source>
        <translation>Tabellen (*.csv *.txt *.tsv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Export users</source>
        <translation>Benutzer exportieren</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Exporting the users...</source>
        <translation>Die Benutzer werden exportiert …</translation>
    </message>
    <message>
        <source>%1 users were saved as %2.</source>
        <translation>%1 Benutzer wurden als %2 gespeichert.</translation>
    </message>
    <message>
        <source>The users were not exported.</source>
        <translation>Die Benutzer wurden nicht exportiert.</translation>
    </message>
</context>
<context>
    <name>ImportModel</name>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>What is changed, or why it is refused</source>
        <translation>Was geändert wird oder warum sie abgelehnt ist</translation>
    </message>
</context>
<context>
    <name>ImportPlan</name>
    <message>
        <source>There are %1 logins, and no more are taken</source>
        <translation>Es gibt %1 Anmeldungen, und mehr werden nicht angenommen</translation>
    </message>
    <message>
        <source>%1 megabytes</source>
        <translation>%1 Megabyte</translation>
    </message>
    <message>
        <source>%1 of money</source>
        <translation>%1 Geld</translation>
    </message>
    <message>
        <source>unlimited</source>
        <translation>unbegrenzt</translation>
    </message>
    <message>
        <source>a new one</source>
        <translation>ein neues</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>unchanged</source>
        <translation>unverändert</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>none</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>column, value</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: %2 → %3</source>
        <comment>column, old value, new value</comment>
        <translation>%1: %2 → %3</translation>
    </message>
</context>
<context>
    <name>ImportRow</name>
    <message>
        <source>it is to be from %1 to %2</source>
        <translation>erwartet wird eine Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>at most %1 decimals are taken</source>
        <translation>höchstens %1 Nachkommastellen sind möglich</translation>
    </message>
    <message>
        <source>its mark may part thousands or decimals</source>
        <translation>ihr Zeichen kann Tausender oder Nachkommastellen abtrennen</translation>
    </message>
    <message>
        <source>it is no number</source>
        <translation>das ist keine Zahl</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot;: %3</source>
        <comment>column, value, what is wrong</comment>
        <translation>%1 „%2“: %3</translation>
    </message>
    <message>
        <source>it has characters that cannot be shown</source>
        <translation>der Text enthält Zeichen, die sich nicht darstellen lassen</translation>
    </message>
    <message>
        <source>it is too long</source>
        <translation>der Text ist zu lang</translation>
    </message>
    <message>
        <source>The row has no user name</source>
        <translation>Die Zeile hat keinen Benutzernamen</translation>
    </message>
    <message>
        <source>%1 users have this name</source>
        <translation>%1 Benutzer haben diesen Namen</translation>
    </message>
    <message>
        <source>This user is not monitored</source>
        <translation>Dieser Benutzer wird nicht überwacht</translation>
    </message>
    <message>
        <source>it is no IP address</source>
        <translation>das ist keine IP-Adresse</translation>
    </message>
    <message>
        <source>the address is excluded</source>
        <translation>die Adresse ist ausgeschlossen</translation>
    </message>
    <message>
        <source>a MAC address has twelve digits 0 to 9 and A to F</source>
        <translation>eine MAC-Adresse hat zwölf Ziffern 0 bis 9 und A bis F</translation>
    </message>
    <message>
        <source>there is no such group. A column &quot;%1&quot; with &quot;%2&quot; makes it</source>
        <translation>es gibt keine solche Gruppe. Eine Spalte „%1“ mit „%2“ legt sie an</translation>
    </message>
    <message>
        <source>it is to be &quot;%1&quot; or &quot;%2&quot;</source>
        <translation>erwartet wird „%1“ oder „%2“</translation>
    </message>
    <message>
        <source>there is no such access type</source>
        <translation>es gibt keine solche Zugangsart</translation>
    </message>
    <message>
        <source>The access type needs an accounting period</source>
        <translation>Die Zugangsart braucht einen Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>the user&apos;s access type has none</source>
        <translation>die Zugangsart des Benutzers hat so etwas nicht</translation>
    </message>
    <message>
        <source>There is a password and no login</source>
        <translation>Es gibt ein Passwort, aber keine Anmeldung</translation>
    </message>
    <message>
        <source>it is the login of another user</source>
        <translation>es ist die Anmeldung eines anderen Benutzers</translation>
    </message>
    <message>
        <source>a new login needs a password</source>
        <translation>eine neue Anmeldung braucht ein Passwort</translation>
    </message>
    <message>
        <source>A credit is of traffic or of money</source>
        <translation>Ein Guthaben ist entweder Datenverkehr oder Geld</translation>
    </message>
    <message>
        <source>only users of the access type Provider have credits</source>
        <translation>nur Benutzer der Zugangsart Provider haben Guthaben</translation>
    </message>
    <message>
        <source>it is no day. Write it as in 2026-12-31</source>
        <translation>das ist kein Tag. Schreiben Sie ihn wie 2026-12-31</translation>
    </message>
    <message>
        <source>it is no whole number</source>
        <translation>das ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>the user has another login already</source>
        <translation>der Benutzer hat schon eine andere Anmeldung</translation>
    </message>
    <message>
        <source>there is no credit that could expire</source>
        <translation>es gibt kein Guthaben, das ablaufen könnte</translation>
    </message>
</context>
<context>
    <name>ImportTable</name>
    <message>
        <source>In the row that begins on line %1 a quotation mark stands where none may. A cell with quotation marks stands in quotation marks, and those within are doubled</source>
        <translation>In der Zeile, die in Zeile %1 der Datei beginnt, steht ein Anführungszeichen, wo keines stehen darf. Eine Zelle mit Anführungszeichen steht in Anführungszeichen, und die darin werden verdoppelt</translation>
    </message>
    <message>
        <source>The file is too large for the memory</source>
        <translation>Die Datei ist zu groß für den Arbeitsspeicher</translation>
    </message>
    <message>
        <source>Two columns are called &quot;%1&quot;</source>
        <translation>Zwei Spalten heißen „%1“</translation>
    </message>
    <message>
        <source>The first line has no column called &quot;%1&quot;: it must name the columns</source>
        <translation>Die erste Zeile hat keine Spalte „%1“: Sie muss die Spalten benennen</translation>
    </message>
    <message>
        <source>The row has %1 cells, and there are %2 columns</source>
        <translation>Die Zeile hat %1 Zellen, und es gibt %2 Spalten</translation>
    </message>
    <message>
        <source>The file is empty</source>
        <translation>Die Datei ist leer</translation>
    </message>
    <message>
        <source>%1 is not a file</source>
        <translation>%1 ist keine Datei</translation>
    </message>
    <message>
        <source>%1 could not be read: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 is too large: at most 256 MB are read</source>
        <translation>%1 ist zu groß: Höchstens 256 MB werden gelesen</translation>
    </message>
</context>
<context>
    <name>IpAddressField</name>
    <message>
        <source>Please enter an integer between 0 and 255.</source>
        <translation>Bitte geben Sie eine ganze Zahl zwischen 0 und 255 ein.</translation>
    </message>
    <message>
        <source>%1, part %2 of 4</source>
        <translation>%1, Teil %2 von 4</translation>
    </message>
</context>
<context>
    <name>KeyFile</name>
    <message>
        <source>cannot be read: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>cannot be written: %1</source>
        <translation>kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>is damaged and must be mended: %1</source>
        <translation>ist beschädigt und muss in Ordnung gebracht werden: %1</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>es ist keine Datei</translation>
    </message>
    <message>
        <source>it is larger than %1 bytes</source>
        <translation>sie ist größer als %1 Bytes</translation>
    </message>
    <message>
        <source>cannot be written: its folder: %1</source>
        <translation>kann nicht geschrieben werden: ihr Ordner: %1</translation>
    </message>
    <message>
        <source>cannot be written: another program is at work in its folder</source>
        <translation>kann nicht geschrieben werden: ein anderes Programm arbeitet in ihrem Ordner</translation>
    </message>
</context>
<context>
    <name>Layout</name>
    <message>
        <source>&quot;title&quot; is missing</source>
        <translation>&quot;title&quot; fehlt</translation>
    </message>
    <message>
        <source>&quot;top&quot; needs rows = &quot;summed&quot;</source>
        <translation>&quot;top&quot; braucht rows = &quot;summed&quot;</translation>
    </message>
    <message>
        <source>there must be 1 to %1 [[column]] tables</source>
        <translation>nötig sind 1 bis %1 Tabellen [[column]]</translation>
    </message>
    <message>
        <source>a column&apos;s &quot;name&quot; is missing</source>
        <translation>bei einer Spalte fehlt &quot;name&quot;</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name, or a second one</source>
        <translation>&quot;%1&quot; ist kein Name oder ist doppelt</translation>
    </message>
    <message>
        <source>only numbers have a total</source>
        <translation>nur Zahlen haben eine Summe</translation>
    </message>
    <message>
        <source>a computed column is an amount or an integer</source>
        <translation>eine berechnete Spalte ist eine Menge oder eine ganze Zahl</translation>
    </message>
    <message>
        <source>&quot;words&quot; are two: for 0 and for 1</source>
        <translation>&quot;words&quot; sind zwei: für 0 und für 1</translation>
    </message>
    <message>
        <source>a column is computed from numbers that are read</source>
        <translation>eine Spalte wird aus Zahlen berechnet, die gelesen werden</translation>
    </message>
    <message>
        <source>&quot;group&quot; needs rows = &quot;each&quot;</source>
        <translation>&quot;group&quot; braucht rows = &quot;each&quot;</translation>
    </message>
    <message>
        <source>rows are not grouped by numbers</source>
        <translation>nach Zahlen werden Zeilen nicht gruppiert</translation>
    </message>
    <message>
        <source>no column is left to be printed</source>
        <translation>es bleibt keine Spalte zum Drucken</translation>
    </message>
    <message>
        <source>rows of each are ordered by columns that are read</source>
        <translation>bei rows = &quot;each&quot; wird nach Spalten geordnet, die gelesen werden</translation>
    </message>
    <message>
        <source>&quot;chart&quot; is not a table</source>
        <translation>&quot;chart&quot; ist keine Tabelle</translation>
    </message>
    <message>
        <source>a chart draws one or two values</source>
        <translation>ein Diagramm zeichnet einen oder zwei Werte</translation>
    </message>
    <message>
        <source>a chart draws read or counted columns with a total</source>
        <translation>ein Diagramm zeichnet gelesene oder gezählte Spalten mit einer Summe</translation>
    </message>
    <message>
        <source>&quot;day&quot; is not a column of days</source>
        <translation>&quot;day&quot; ist keine Spalte mit Tagen</translation>
    </message>
    <message>
        <source>&quot;label&quot; is not a column of texts</source>
        <translation>&quot;label&quot; ist keine Spalte mit Texten</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no column &quot;%2&quot;; the nearest is &quot;%3&quot;</source>
        <translation>&quot;%1&quot; nennt keine Spalte &quot;%2&quot;; die ähnlichste ist &quot;%3&quot;</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names a column that is not there</source>
        <translation>&quot;%1&quot; nennt eine Spalte, die es nicht gibt</translation>
    </message>
    <message>
        <source>the layout file cannot be read</source>
        <translation>die Layoutdatei kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>there is no such layout file</source>
        <translation>diese Layoutdatei gibt es nicht</translation>
    </message>
    <message>
        <source>the file is larger than a layout can be (%1 KiB)</source>
        <translation>die Datei ist größer, als ein Layout sein kann (%1 KiB)</translation>
    </message>
    <message>
        <source>a rank has no total</source>
        <translation>ein Rang hat keine Summe</translation>
    </message>
    <message>
        <source>a share is of a column with a total</source>
        <translation>ein Anteil gilt für eine Spalte mit Summe</translation>
    </message>
    <message>
        <source>ranks and shares need rows = &quot;summed&quot;</source>
        <translation>Ränge und Anteile verlangen rows = &quot;summed&quot;</translation>
    </message>
</context>
<context>
    <name>LayoutTable</name>
    <message>
        <source>unknown key &quot;%1&quot;; the nearest known one is &quot;%2&quot;</source>
        <translation>unbekannter Schlüssel &quot;%1&quot;; der ähnlichste bekannte ist &quot;%2&quot;</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a text</source>
        <translation>&quot;%1&quot; ist kein Text</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither true nor false</source>
        <translation>&quot;%1&quot; ist weder true noch false</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a whole number</source>
        <translation>&quot;%1&quot; ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number from %2 to %3</source>
        <translation>&quot;%1&quot; ist keine Zahl von %2 bis %3</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a list of texts</source>
        <translation>&quot;%1&quot; ist keine Liste von Texten</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds something that is not a text</source>
        <translation>&quot;%1&quot; enthält etwas, das kein Text ist</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be &quot;%2&quot;; the nearest known is &quot;%3&quot;</source>
        <translation>&quot;%1&quot; kann nicht &quot;%2&quot; sein; das ähnlichste bekannte Wort ist &quot;%3&quot;</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a list of numbers from 1</source>
        <translation>„%1“ ist keine Liste von Zahlen ab 1</translation>
    </message>
</context>
<context>
    <name>LimitCreditDialog</name>
    <message>
        <source>&amp;Traffic</source>
        <translation>&amp;Datenverkehr</translation>
    </message>
    <message>
        <source>T&amp;ime</source>
        <translation>&amp;Zeit</translation>
    </message>
</context>
<context>
    <name>LimitDialog</name>
    <message>
        <source>Limit</source>
        <translation>Limit</translation>
    </message>
    <message>
        <source>Please enter the limit as a whole number</source>
        <translation>Bitte geben Sie das Limit als ganze Zahl ein</translation>
    </message>
</context>
<context>
    <name>LimitsPage</name>
    <message>
        <source>Reading the limits...</source>
        <translation>Die Limits werden gelesen …</translation>
    </message>
    <message>
        <source>The limits could not be read.</source>
        <translation>Die Limits konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Change accounting period</source>
        <translation>Abrechnungszeitraum ändern</translation>
    </message>
    <message>
        <source>Change traffic limit</source>
        <translation>Datenlimit ändern</translation>
    </message>
    <message>
        <source>Change rate</source>
        <translation>Preis ändern</translation>
    </message>
    <message>
        <source>Use global settings</source>
        <translation>Globale Einstellungen verwenden</translation>
    </message>
    <message>
        <source>Change time limit</source>
        <translation>Zeitlimit ändern</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Fixed limits within accounting period</source>
        <translation>Feste Limits im Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation>Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Traffic limit, Mb</source>
        <translation>Datenlimit, MB</translation>
    </message>
    <message>
        <source>Time limit, Hr</source>
        <translation>Zeitlimit, Std.</translation>
    </message>
    <message>
        <source>Rates</source>
        <translation>Preise</translation>
    </message>
    <message>
        <source>Traffic,</source>
        <translation>Datenverkehr</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Limits</translation>
    </message>
    <message>
        <source>This user has been deleted meanwhile.</source>
        <translation>Dieser Benutzer wurde inzwischen gelöscht.</translation>
    </message>
    <message>
        <source>This group has been deleted meanwhile.</source>
        <translation>Diese Gruppe wurde inzwischen gelöscht.</translation>
    </message>
</context>
<context>
    <name>ListCommands</name>
    <message>
        <source>The new group cannot be found by its name. Nothing was changed.</source>
        <translation>Die neue Gruppe ist unter ihrem Namen nicht zu finden. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>This will delete this user and all corresponding information. Continue?</source>
        <translation>Damit werden dieser Benutzer und alle zugehörigen Daten gelöscht. Fortfahren?</translation>
    </message>
    <message>
        <source>This will delete these users and all corresponding information. Continue?</source>
        <translation>Damit werden diese Benutzer und alle zugehörigen Daten gelöscht. Fortfahren?</translation>
    </message>
    <message>
        <source>This will delete the selected group. Contunue?</source>
        <translation>Damit wird die ausgewählte Gruppe gelöscht. Fortfahren?</translation>
    </message>
    <message>
        <source>You cannot delete Everybody group</source>
        <translation>Die Gruppe Everybody kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>You can not rename Everybody group</source>
        <translation>Die Gruppe Everybody kann nicht umbenannt werden</translation>
    </message>
</context>
<context>
    <name>ListExport</name>
    <message>
        <source>Export list</source>
        <translation>Liste exportieren</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Exporting the list...</source>
        <translation>Die Liste wird exportiert …</translation>
    </message>
    <message>
        <source>%1 users were saved as %2.</source>
        <translation>%1 Benutzer wurden als %2 gespeichert.</translation>
    </message>
    <message>
        <source>The list was not exported.</source>
        <translation>Die Liste wurde nicht exportiert.</translation>
    </message>
    <message>
        <source>all users</source>
        <translation>alle Benutzer</translation>
    </message>
    <message>
        <source>users</source>
        <translation>Benutzer</translation>
    </message>
</context>
<context>
    <name>ListPane</name>
    <message>
        <source>Account...</source>
        <translation>Konto …</translation>
    </message>
    <message>
        <source>The list could not be read.</source>
        <translation>Die Liste konnte nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>ListPrint</name>
    <message>
        <source>Printing the list...</source>
        <translation>Die Liste wird gedruckt …</translation>
    </message>
    <message>
        <source>No printer is installed. The list can be exported as a file.</source>
        <translation>Es ist kein Drucker eingerichtet. Die Liste kann als Datei exportiert werden.</translation>
    </message>
    <message>
        <source>Reading the list...</source>
        <translation>Die Liste wird gelesen …</translation>
    </message>
    <message>
        <source>The list was not printed.</source>
        <translation>Die Liste wurde nicht gedruckt.</translation>
    </message>
    <message>
        <source>There is no user to print.</source>
        <translation>Es gibt keinen Benutzer zu drucken.</translation>
    </message>
    <message>
        <source>Users sent to the printer: %1, on pages: %2.</source>
        <translation>An den Drucker gesendete Benutzer: %1, auf Seiten: %2.</translation>
    </message>
    <message>
        <source>Users printed to the file %1: %2, on pages: %3.</source>
        <translation>In die Datei %1 gedruckte Benutzer: %2, auf Seiten: %3.</translation>
    </message>
</context>
<context>
    <name>LocalAddresses</name>
    <message>
        <source>is to be a text in quotation marks</source>
        <translation>muss ein Text in Anführungszeichen sein</translation>
    </message>
    <message>
        <source>is to be a number from %1 to %2</source>
        <translation>muss eine Zahl von %1 bis %2 sein</translation>
    </message>
    <message>
        <source>is to be a number without quotation marks</source>
        <translation>muss eine Zahl ohne Anführungszeichen sein</translation>
    </message>
    <message>
        <source>cannot be used: %1 %2</source>
        <translation>ist nicht zu gebrauchen: %1 %2</translation>
    </message>
</context>
<context>
    <name>LoginManager</name>
    <message>
        <source>The changes of these logins are not saved. Drop them?</source>
        <translation>Die Änderungen dieser Anmeldungen sind nicht gespeichert. Verwerfen?</translation>
    </message>
    <message>
        <source>Login manager</source>
        <translation>Anmeldungsverwaltung</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Logins</source>
        <translation>Anmeldungen</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Anmeldung</translation>
    </message>
    <message>
        <source>Bind to user</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Bind Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Create...</source>
        <translation>Anlegen …</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>All groups</source>
        <translation>Alle Gruppen</translation>
    </message>
    <message>
        <source>Guest</source>
        <translation>Gast</translation>
    </message>
    <message>
        <source>With no bind</source>
        <translation>Ohne Zuordnung</translation>
    </message>
    <message>
        <source>Storing the logins...</source>
        <translation>Die Anmeldungen werden gespeichert …</translation>
    </message>
    <message>
        <source>Reading the logins...</source>
        <translation>Die Anmeldungen werden gelesen …</translation>
    </message>
    <message>
        <source>The logins could not be read.</source>
        <translation>Die Anmeldungen konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>There are no logins yet.</source>
        <translation>Noch gibt es keine Anmeldungen.</translation>
    </message>
    <message>
        <source>None of the logins belongs here.</source>
        <translation>Keine der Anmeldungen gehört hierher.</translation>
    </message>
</context>
<context>
    <name>LoginSave</name>
    <message>
        <source>no limit</source>
        <translation>keine Einschränkung</translation>
    </message>
    <message>
        <source>The login %1 was not saved: somebody else has made it meanwhile.</source>
        <translation>Die Anmeldung %1 wurde nicht gespeichert: jemand anders hat sie inzwischen angelegt.</translation>
    </message>
    <message>
        <source>The login %1 was not saved: somebody else has removed it meanwhile. It is no longer listed.</source>
        <translation>Die Anmeldung %1 wurde nicht gespeichert: jemand anders hat sie inzwischen entfernt. Sie wird nicht mehr aufgeführt.</translation>
    </message>
    <message>
        <source>the limit of the workstation</source>
        <translation>die Einschränkung auf einen Arbeitsplatz</translation>
    </message>
    <message>
        <source>the access to personal statistics</source>
        <translation>der Zugang zur eigenen Statistik</translation>
    </message>
    <message>
        <source>the bound user</source>
        <translation>der zugeordnete Benutzer</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>Login %1: %2 was changed meanwhile to %3 – overwrite?</source>
        <translation>Anmeldung %1: %2 wurde inzwischen zu %3 geändert – überschreiben?</translation>
    </message>
    <message>
        <source>The login %1 was not removed.</source>
        <translation>Die Anmeldung %1 wurde nicht entfernt.</translation>
    </message>
    <message>
        <source>The login %1 was not saved.</source>
        <translation>Die Anmeldung %1 wurde nicht gespeichert.</translation>
    </message>
    <message>
        <source>The login %1 was not saved: the user to whom it is bound has been deleted meanwhile.</source>
        <translation>Die Anmeldung %1 wurde nicht gespeichert: der Benutzer, an den sie gebunden ist, wurde inzwischen gelöscht.</translation>
    </message>
</context>
<context>
    <name>LoginStorage</name>
    <message>
        <source>It is not known what was saved. Please look at the logins again.</source>
        <translation>Was gespeichert wurde, ist nicht bekannt. Bitte sehen Sie sich die Anmeldungen noch einmal an.</translation>
    </message>
    <message>
        <source>The other changes were saved.</source>
        <translation>Die anderen Änderungen wurden gespeichert.</translation>
    </message>
    <message>
        <source>Nothing was saved.</source>
        <translation>Nichts wurde gespeichert.</translation>
    </message>
    <message>
        <source>Error writing information to the database</source>
        <translation>Fehler beim Schreiben in die Datenbank</translation>
    </message>
    <message>
        <source>Remove this login from the database?</source>
        <translation>Diese Anmeldung aus der Datenbank entfernen?</translation>
    </message>
</context>
<context>
    <name>LoginTable</name>
    <message>
        <source>Passwords are not identical. Please re-enter passwords</source>
        <translation>Die Passwörter stimmen nicht überein. Bitte geben Sie die Passwörter neu ein</translation>
    </message>
    <message>
        <source>You entered incorrect IP address. Please re-enter address</source>
        <translation>Sie haben eine falsche IP-Adresse eingegeben. Bitte geben Sie die Adresse neu ein</translation>
    </message>
    <message>
        <source>You have entered incorrect MAC address. Please re-enter the address</source>
        <translation>Sie haben eine falsche MAC-Adresse eingegeben. Bitte geben Sie die Adresse neu ein</translation>
    </message>
    <message>
        <source>Please bind the login to existing user with &apos;Browse&apos; button</source>
        <translation>Bitte ordnen Sie die Anmeldung mit „Benutzer auswählen …“ einem vorhandenen Benutzer zu</translation>
    </message>
    <message>
        <source>The password is too long. It can hold at most 256 characters</source>
        <translation>Das Passwort ist zu lang. Es darf höchstens 256 Zeichen haben</translation>
    </message>
    <message>
        <source>Please enter login name</source>
        <translation>Bitte geben Sie einen Anmeldenamen ein</translation>
    </message>
    <message>
        <source>This login name already exists! Please enter another login name</source>
        <translation>Diesen Anmeldenamen gibt es bereits! Bitte geben Sie einen anderen ein</translation>
    </message>
    <message>
        <source>There is no more space to enter new login record</source>
        <translation>Für eine weitere Anmeldung ist kein Platz mehr</translation>
    </message>
    <message>
        <source>This user already has login</source>
        <translation>Dieser Benutzer hat bereits eine Anmeldung</translation>
    </message>
</context>
<context>
    <name>LookLock</name>
    <message>
        <source>You may look at everything here and change nothing.</source>
        <translation>Sie können sich hier alles ansehen und nichts ändern.</translation>
    </message>
</context>
<context>
    <name>ManyUsersDialog</name>
    <message>
        <source>Changing the users...</source>
        <translation>Die Benutzer werden geändert …</translation>
    </message>
    <message>
        <source>Access properties for multiple users</source>
        <translation>Zugangseigenschaften mehrerer Benutzer</translation>
    </message>
    <message>
        <source>Users changed</source>
        <translation>Geänderte Benutzer</translation>
    </message>
    <message>
        <source>These %1 users will be changed:</source>
        <translation>Diese %1 Benutzer werden geändert:</translation>
    </message>
    <message>
        <source>Fixed limits within accounting period</source>
        <translation>Feste Limits im Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation>Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Traffic limit, Mb</source>
        <translation>Datenlimit, MB</translation>
    </message>
    <message>
        <source>Time limit, Hr</source>
        <translation>Zeitlimit, Std.</translation>
    </message>
    <message>
        <source>Please select one of the corporate type access options</source>
        <translation>Bitte wählen Sie eine der Optionen der Zugangsart „Firma“</translation>
    </message>
    <message>
        <source>Please choose an accounting period</source>
        <translation>Bitte wählen Sie einen Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Please enter the limit as a whole number</source>
        <translation>Bitte geben Sie das Limit als ganze Zahl ein</translation>
    </message>
    <message>
        <source>Some of these users have been deleted meanwhile. %1 of %2 are changed.</source>
        <translation>Einige dieser Benutzer wurden inzwischen gelöscht. %1 von %2 sind geändert.</translation>
    </message>
    <message>
        <source>%v of %m</source>
        <translation>%v von %m</translation>
    </message>
</context>
<context>
    <name>MatchingUsers</name>
    <message>
        <source>Reading the users...</source>
        <translation>Die Benutzer werden gelesen …</translation>
    </message>
    <message>
        <source>The users could not be read.</source>
        <translation>Die Benutzer konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>No user found</source>
        <translation>Kein Benutzer gefunden</translation>
    </message>
</context>
<context>
    <name>MessageBoxPrompt</name>
    <message>
        <source>Tollbrook Administrator</source>
        <translation>Tollbrook Administrator</translation>
    </message>
</context>
<context>
    <name>MessagePane</name>
    <message>
        <source>The service is being told of the change...</source>
        <translation>Der Dienst wird von der Änderung benachrichtigt …</translation>
    </message>
    <message>
        <source>The change is in force.</source>
        <translation>Die Änderung ist in Kraft.</translation>
    </message>
    <message>
        <source>The service was not told and will find the change in the database.</source>
        <translation>Der Dienst wurde nicht benachrichtigt und wird die Änderung in der Datenbank vorfinden.</translation>
    </message>
    <message>
        <source>The change will be in force when the service reads the database next, within %1 seconds.</source>
        <translation>Die Änderung tritt in Kraft, wenn der Dienst die Datenbank das nächste Mal liest, innerhalb von %1 Sekunden.</translation>
    </message>
    <message>
        <source>The change will be in force when the service starts.</source>
        <translation>Die Änderung tritt in Kraft, wenn der Dienst startet.</translation>
    </message>
    <message>
        <source>The settings will be in force when the service is restarted.</source>
        <translation>Die Einstellungen treten in Kraft, wenn der Dienst neu gestartet wird.</translation>
    </message>
    <message>
        <source>Reading the lists...</source>
        <translation>Die Listen werden gelesen …</translation>
    </message>
    <message>
        <source>No connection to the database</source>
        <translation>Keine Verbindung zur Datenbank</translation>
    </message>
</context>
<context>
    <name>MonitorModeBox</name>
    <message>
        <source>Monitor all protocols</source>
        <translation>Alle Protokolle überwachen</translation>
    </message>
    <message>
        <source>Monitor basic Internet protocols</source>
        <translation>Grundlegende Internetprotokolle überwachen</translation>
    </message>
    <message>
        <source>Monitor specified protocols only</source>
        <translation>Nur angegebene Protokolle überwachen</translation>
    </message>
    <message>
        <source>Monitor all protocols but specified</source>
        <translation>Alle außer den angegebenen Protokollen überwachen</translation>
    </message>
</context>
<context>
    <name>MonitoredDialog</name>
    <message>
        <source>Monitored protocols</source>
        <translation>Überwachte Protokolle</translation>
    </message>
</context>
<context>
    <name>NamesLine</name>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weitere</translation>
    </message>
</context>
<context>
    <name>NetworkPage</name>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
</context>
<context>
    <name>NewUser</name>
    <message>
        <source>Please enter the name of the user</source>
        <translation>Bitte geben Sie den Namen des Benutzers ein</translation>
    </message>
    <message>
        <source>There is a user %1 already. Nothing was changed.</source>
        <translation>Es gibt bereits einen Benutzer %1. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>The group %1 cannot be found by its name. Nothing was changed.</source>
        <translation>Die Gruppe %1 ist nicht an ihrem Namen zu finden. Es wurde nichts geändert.</translation>
    </message>
</context>
<context>
    <name>NewUserDialog</name>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>New user</source>
        <translation>Neuer Benutzer</translation>
    </message>
    <message>
        <source>The user gets the access type &quot;%1&quot; and what else the options say of new users. Its properties can be changed afterwards.</source>
        <translation>Der Benutzer bekommt die Zugangsart „%1“ und was die Optionen sonst für neue Benutzer vorsehen. Seine Eigenschaften können danach geändert werden.</translation>
    </message>
    <message>
        <source>User &amp;name:</source>
        <translation>Benutzer&amp;name:</translation>
    </message>
    <message>
        <source>&amp;Group:</source>
        <translation>&amp;Gruppe:</translation>
    </message>
    <message>
        <source>&amp;IP address:</source>
        <translation>&amp;IP-Adresse:</translation>
    </message>
    <message>
        <source>&amp;MAC address:</source>
        <translation>&amp;MAC-Adresse:</translation>
    </message>
    <message>
        <source>Please enter a user name</source>
        <translation>Bitte geben Sie einen Benutzernamen ein</translation>
    </message>
    <message>
        <source>Please enter full IP address</source>
        <translation>Bitte geben Sie die vollständige IP-Adresse ein</translation>
    </message>
    <message>
        <source>Please enter an IP address or a MAC address: the user is known by it</source>
        <translation>Bitte geben Sie eine IP-Adresse oder eine MAC-Adresse ein: Daran wird der Benutzer erkannt</translation>
    </message>
    <message>
        <source>Adding the user...</source>
        <translation>Der Benutzer wird angelegt …</translation>
    </message>
    <message>
        <source>The user was not added.</source>
        <translation>Der Benutzer wurde nicht hinzugefügt.</translation>
    </message>
    <message>
        <source>There is a user of this name. Please enter another one</source>
        <translation>Es gibt schon einen Benutzer dieses Namens. Bitte geben Sie einen anderen ein</translation>
    </message>
    <message>
        <source>No user can be added.</source>
        <translation>Es kann kein Benutzer angelegt werden.</translation>
    </message>
    <message>
        <source>Reading the groups...</source>
        <translation>Die Gruppen werden gelesen …</translation>
    </message>
</context>
<context>
    <name>NobodyElse</name>
    <message>
        <source>Who is connected to &quot;%1&quot; cannot be told: %2</source>
        <translation>Wer mit „%1“ verbunden ist, lässt sich nicht feststellen: %2</translation>
    </message>
    <message>
        <source>Others are connected to the database of &quot;%1&quot;. End them first:
%2</source>
        <translation>Mit der Datenbank von „%1“ sind andere verbunden. Beenden Sie diese zuerst:
%2</translation>
    </message>
    <message>
        <source>The version of the tables of &quot;%1&quot; cannot be read: %2</source>
        <translation>Die Version der Tabellen von „%1“ kann nicht gelesen werden: %2</translation>
    </message>
</context>
<context>
    <name>NoticeQueue</name>
    <message>
        <source>No answer within %1 seconds</source>
        <translation>Keine Antwort innerhalb von %1 Sekunden</translation>
    </message>
</context>
<context>
    <name>NumberField</name>
    <message>
        <source>Please enter an integer between %1 and %2.</source>
        <translation>Bitte geben Sie eine ganze Zahl zwischen %1 und %2 ein.</translation>
    </message>
    <message numerus="yes">
        <source>Please enter a number between %1 and %2, with at most %n decimals.</source>
        <translation>
            <numerusform>Bitte geben Sie eine Zahl zwischen %1 und %2 mit höchstens %n Nachkommastelle ein.</numerusform>
            <numerusform>Bitte geben Sie eine Zahl zwischen %1 und %2 mit höchstens %n Nachkommastellen ein.</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot; can be read in two ways. Please enter &quot;%2&quot;.</source>
        <translation>„%1“ kann auf zwei Arten gelesen werden. Bitte geben Sie „%2“ ein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; can be read in two ways. Please enter &quot;%2&quot; or &quot;%3&quot;.</source>
        <translation>„%1“ kann auf zwei Arten gelesen werden. Bitte geben Sie „%2“ oder „%3“ ein.</translation>
    </message>
</context>
<context>
    <name>Options</name>
    <message>
        <source>Local IP addresses</source>
        <translation>Lokale IP-Adressen</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen …</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Excluded IP addresses</source>
        <translation>Ausgeschlossene IP-Adressen</translation>
    </message>
    <message>
        <source>Enter IP address to exclude:</source>
        <translation>Auszuschließende IP-Adresse:</translation>
    </message>
    <message>
        <source>Prevent users from changing IP address</source>
        <translation>Benutzer am Ändern der IP-Adresse hindern</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>a symbolic link of somebody else leads there</source>
        <translation>ein symbolischer Verweis eines anderen Benutzers führt dorthin</translation>
    </message>
</context>
<context>
    <name>OutputFormat</name>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Text with commas (*.csv)</source>
        <translation>Text mit Kommas (*.csv)</translation>
    </message>
    <message>
        <source>Web page (*.html)</source>
        <translation>Webseite (*.html)</translation>
    </message>
    <message>
        <source>Spreadsheet (*.xlsx)</source>
        <translation>Tabelle (*.xlsx)</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 oder %2</translation>
    </message>
</context>
<context>
    <name>OwnerNotice</name>
    <message>
        <source>User: </source>
        <translation>Benutzer: </translation>
    </message>
    <message>
        <source>Group: </source>
        <translation>Gruppe: </translation>
    </message>
</context>
<context>
    <name>PageSetup</name>
    <message>
        <source>The logo %1 cannot be read.</source>
        <translation>Das Logo %1 lässt sich nicht lesen.</translation>
    </message>
</context>
<context>
    <name>PageSetupDialog</name>
    <message>
        <source>Page setup of reports</source>
        <translation>Seite der Berichte einrichten</translation>
    </message>
    <message>
        <source>As each report needs it</source>
        <translation>Wie der Bericht es braucht</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Hochformat</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Querformat</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen …</translation>
    </message>
    <message>
        <source>Paper:</source>
        <translation>Papier:</translation>
    </message>
    <message>
        <source>Orientation:</source>
        <translation>Ausrichtung:</translation>
    </message>
    <message>
        <source>Organisation:</source>
        <translation>Organisation:</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Anschrift:</translation>
    </message>
    <message>
        <source>Logo (PNG, JPEG):</source>
        <translation>Logo (PNG, JPEG):</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg)</source>
        <translation>Bilder (*.png *.jpg *.jpeg)</translation>
    </message>
    <message>
        <source>No logo</source>
        <translation>Kein Logo</translation>
    </message>
    <message>
        <source>The logo</source>
        <translation>Das Logo</translation>
    </message>
    <message>
        <source>This file holds no picture that can be read. Choose a PNG or JPEG file.</source>
        <translation>Diese Datei enthält kein lesbares Bild. Wählen Sie eine PNG- oder JPEG-Datei.</translation>
    </message>
    <message>
        <source>The address is too long.</source>
        <translation>Die Anschrift ist zu lang.</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>This is a folder. Choose a PNG or JPEG file.</source>
        <translation>Das ist ein Ordner. Wählen Sie eine PNG- oder JPEG-Datei.</translation>
    </message>
</context>
<context>
    <name>PeriodDialog</name>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation>Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Accounting period:</source>
        <translation>Abrechnungszeitraum:</translation>
    </message>
    <message>
        <source>Please choose an accounting period</source>
        <translation>Bitte wählen Sie einen Abrechnungszeitraum</translation>
    </message>
</context>
<context>
    <name>PortDenials</name>
    <message>
        <source>1 denied port of users and groups names %1 and goes with it. Continue?</source>
        <translation>1 verbotener Port von Benutzern und Gruppen bezieht sich auf %1 und entfällt mit ihm. Fortfahren?</translation>
    </message>
    <message>
        <source>%2 denied ports of users and groups name %1 and go with it. Continue?</source>
        <translation>%2 verbotene Ports von Benutzern und Gruppen beziehen sich auf %1 und entfallen mit ihm. Fortfahren?</translation>
    </message>
</context>
<context>
    <name>PortList</name>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Add port</source>
        <translation>Port hinzufügen</translation>
    </message>
    <message>
        <source>Port number:</source>
        <translation>Portnummer:</translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation>Wählen Sie den Eintrag, der gelöscht werden soll</translation>
    </message>
</context>
<context>
    <name>PresentUsers</name>
    <message>
        <source>This user has been deleted meanwhile. Nothing was changed.</source>
        <translation>Dieser Benutzer wurde inzwischen gelöscht. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>These users have been deleted meanwhile. Nothing was changed.</source>
        <translation>Diese Benutzer wurden inzwischen gelöscht. Nichts wurde geändert.</translation>
    </message>
</context>
<context>
    <name>PrintPages</name>
    <message>
        <source>No printer is installed. The report can be saved as PDF.</source>
        <translation>Es ist kein Drucker eingerichtet. Der Bericht kann als PDF gespeichert werden.</translation>
    </message>
    <message>
        <source>The report was not printed.</source>
        <translation>Der Bericht wurde nicht gedruckt.</translation>
    </message>
    <message>
        <source>The report was sent to the printer.</source>
        <translation>Der Bericht wurde an den Drucker gesendet.</translation>
    </message>
    <message>
        <source>The report was printed to the file %1.</source>
        <translation>Der Bericht wurde in die Datei %1 gedruckt.</translation>
    </message>
    <message>
        <source>Printing was stopped; pages sent before: %1.</source>
        <translation>Der Druck wurde abgebrochen; vorher gesendete Seiten: %1.</translation>
    </message>
    <message>
        <source>Printing was stopped; pages in the file %1: %2.</source>
        <translation>Der Druck wurde abgebrochen; Seiten in der Datei %1: %2.</translation>
    </message>
    <message>
        <source>Nothing was printed, since rows could not be read.</source>
        <translation>Es wurde nichts gedruckt, weil Zeilen nicht gelesen werden konnten.</translation>
    </message>
    <message>
        <source>Printing ended, since rows could not be read; pages sent before: %1.</source>
        <translation>Der Druck wurde beendet, weil Zeilen nicht gelesen werden konnten; vorher gesendete Seiten: %1.</translation>
    </message>
    <message>
        <source>Printing ended, since rows could not be read; pages in the file %1: %2.</source>
        <translation>Der Druck wurde beendet, weil Zeilen nicht gelesen werden konnten; Seiten in der Datei %1: %2.</translation>
    </message>
</context>
<context>
    <name>ProgressWindow</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>Properties</name>
    <message>
        <source>Reading the user...</source>
        <translation>Der Benutzer wird gelesen …</translation>
    </message>
    <message>
        <source>The user could not be read.</source>
        <translation>Der Benutzer konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This user has been deleted meanwhile.</source>
        <translation>Dieser Benutzer wurde inzwischen gelöscht.</translation>
    </message>
    <message>
        <source>Reading the group...</source>
        <translation>Die Gruppe wird gelesen …</translation>
    </message>
    <message>
        <source>The group could not be read.</source>
        <translation>Die Gruppe konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This group has been deleted meanwhile.</source>
        <translation>Diese Gruppe wurde inzwischen gelöscht.</translation>
    </message>
    <message>
        <source>User properties</source>
        <translation>Eigenschaften des Benutzers</translation>
    </message>
    <message>
        <source>Storing the user...</source>
        <translation>Der Benutzer wird gespeichert …</translation>
    </message>
    <message>
        <source>Group&apos;s properties</source>
        <translation>Eigenschaften der Gruppe</translation>
    </message>
    <message>
        <source>Storing the group...</source>
        <translation>Die Gruppe wird gespeichert …</translation>
    </message>
    <message>
        <source>Reading the users...</source>
        <translation>Die Benutzer werden gelesen …</translation>
    </message>
    <message>
        <source>The users could not be read.</source>
        <translation>Die Benutzer konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>These users have been deleted meanwhile.</source>
        <translation>Diese Benutzer wurden inzwischen gelöscht.</translation>
    </message>
</context>
<context>
    <name>ProtocolList</name>
    <message>
        <source>Protocol</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Add protocol</source>
        <translation>Protokoll hinzufügen</translation>
    </message>
    <message>
        <source>Protocol title:</source>
        <translation>Bezeichnung des Protokolls:</translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation>Wählen Sie den Eintrag, der gelöscht werden soll</translation>
    </message>
</context>
<context>
    <name>ProtocolPage</name>
    <message>
        <source>Allow protocols</source>
        <translation>Protokolle erlauben</translation>
    </message>
    <message>
        <source>Disallow protocols</source>
        <translation>Protokolle verbieten</translation>
    </message>
    <message>
        <source>Protocols</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>Select the protocol</source>
        <translation>Das Protokoll auswählen</translation>
    </message>
    <message>
        <source>Take the protocol back</source>
        <translation>Das Protokoll zurücknehmen</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Ausgewählt</translation>
    </message>
    <message>
        <source>Available</source>
        <translation>Verfügbar</translation>
    </message>
</context>
<context>
    <name>ProtocolSave</name>
    <message>
        <source>No protocol and no port was stored.</source>
        <translation>Kein Protokoll und kein Port wurde gespeichert.</translation>
    </message>
    <message>
        <source>No protocol and no port was stored: what stands in the database could not be read.</source>
        <translation>Kein Protokoll und kein Port wurde gespeichert: was in der Datenbank steht, konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>What was removed of %1 stays: whom its ports are denied to could not be read.</source>
        <translation>Was von %1 entfernt wurde, bleibt: wem die Ports verboten sind, konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>What was removed of %1 stays.</source>
        <translation>Was von %1 entfernt wurde, bleibt.</translation>
    </message>
    <message>
        <source>%1 was not added, nor its ports.</source>
        <translation>%1 wurde nicht hinzugefügt, die Ports auch nicht.</translation>
    </message>
    <message>
        <source>%1 was added without its ports.</source>
        <translation>%1 wurde ohne die Ports hinzugefügt.</translation>
    </message>
    <message>
        <source>%1 was removed by somebody else meanwhile and does not come back.</source>
        <translation>%1 wurde inzwischen von jemand anderem entfernt und kommt nicht zurück.</translation>
    </message>
    <message>
        <source>Whether the port %1 still stands is not known.</source>
        <translation>Ob der Port %1 noch besteht, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The port %1 was not added.</source>
        <translation>Der Port %1 wurde nicht hinzugefügt.</translation>
    </message>
    <message>
        <source>The ports of the removed protocol %1 are still stored.</source>
        <translation>Die Ports des entfernten Protokolls %1 sind noch gespeichert.</translation>
    </message>
    <message>
        <source>%1 was not removed.</source>
        <translation>%1 wurde nicht entfernt.</translation>
    </message>
    <message>
        <source>The port %1 was not removed.</source>
        <translation>Der Port %1 wurde nicht entfernt.</translation>
    </message>
    <message>
        <source>Users and groups are still denied the removed port %1.</source>
        <translation>Der entfernte Port %1 ist Benutzern und Gruppen weiterhin verboten.</translation>
    </message>
    <message>
        <source>Whether %1 is monitored was not stored.</source>
        <translation>Ob %1 überwacht wird, wurde nicht gespeichert.</translation>
    </message>
</context>
<context>
    <name>ProtocolTable</name>
    <message>
        <source>Enter protocol title please</source>
        <translation>Bitte geben Sie die Bezeichnung des Protokolls ein</translation>
    </message>
    <message>
        <source>This protocol is already in the list!</source>
        <translation>Dieses Protokoll steht bereits in der Liste!</translation>
    </message>
    <message>
        <source>This port is already in list!</source>
        <translation>Dieser Port steht bereits in der Liste!</translation>
    </message>
    <message>
        <source>Enter a port number between 1 and %1 please</source>
        <translation>Bitte geben Sie eine Portnummer zwischen 1 und %1 ein</translation>
    </message>
    <message>
        <source>You can not add more than %1 protocols</source>
        <translation>Sie können nicht mehr als %1 Protokolle hinzufügen</translation>
    </message>
    <message>
        <source>You can not add more than %1 ports to a protocol</source>
        <translation>Sie können einem Protokoll nicht mehr als %1 Ports hinzufügen</translation>
    </message>
    <message>
        <source>You have not selected any protocol. Tollbrook will not track any traffic with this setup. Would you like to continue?</source>
        <translation>Sie haben kein Protokoll ausgewählt. Mit dieser Einstellung erfasst Tollbrook keinen Datenverkehr. Möchten Sie fortfahren?</translation>
    </message>
</context>
<context>
    <name>ProtocolsPage</name>
    <message>
        <source>Available protocols</source>
        <translation>Verfügbare Protokolle</translation>
    </message>
    <message>
        <source>Add protocol...</source>
        <translation>Protokoll hinzufügen …</translation>
    </message>
    <message>
        <source>Remove protocol</source>
        <translation>Protokoll entfernen</translation>
    </message>
    <message>
        <source>Ports for</source>
        <translation>Ports für</translation>
    </message>
    <message>
        <source>Add port...</source>
        <translation>Port hinzufügen …</translation>
    </message>
    <message>
        <source>Remove port</source>
        <translation>Port entfernen</translation>
    </message>
    <message>
        <source>Setup monitored protocols</source>
        <translation>Überwachte Protokolle festlegen</translation>
    </message>
    <message>
        <source>Protocols</source>
        <translation>Protokolle</translation>
    </message>
</context>
<context>
    <name>PurgeDialog</name>
    <message>
        <source>Users</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Traffic records</source>
        <translation>Datensätze des Datenverkehrs</translation>
    </message>
    <message>
        <source>Time records</source>
        <translation>Datensätze der Zeit</translation>
    </message>
    <message>
        <source>Limits and credits</source>
        <translation>Limits und Guthaben</translation>
    </message>
    <message>
        <source>Sites</source>
        <translation>Websites</translation>
    </message>
    <message>
        <source>Visits to sites</source>
        <translation>Besuche von Websites</translation>
    </message>
    <message>
        <source>Purge database</source>
        <translation>Datenbank bereinigen</translation>
    </message>
    <message>
        <source>You may purge all information in  your   database   or  select particular time  period  on  the right of this window</source>
        <translation>Sie können alle Daten aus Ihrer Datenbank entfernen oder rechts in diesem Fenster einen bestimmten Zeitraum wählen</translation>
    </message>
    <message>
        <source>Purge</source>
        <translation>Bereinigen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>The records of the days that you keep stay in the database; all older and newer ones are removed for good. Visits to sites are removed only together with all other information.</source>
        <translation>Die Datensätze der Tage, die Sie behalten, bleiben in der Datenbank; alle älteren und neueren werden endgültig entfernt. Besuche von Websites werden nur zusammen mit allen anderen Daten entfernt.</translation>
    </message>
    <message>
        <source>Information to remove</source>
        <translation>Zu entfernende Daten</translation>
    </message>
    <message>
        <source>Purge all information</source>
        <translation>Alle Daten entfernen</translation>
    </message>
    <message>
        <source>Delete all users</source>
        <translation>Alle Benutzer löschen</translation>
    </message>
    <message>
        <source>Purge for the selected period</source>
        <translation>Nur den gewählten Zeitraum behalten</translation>
    </message>
    <message>
        <source>Rows by table</source>
        <translation>Zeilen je Tabelle</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>Rows to remove</source>
        <translation>Zu entfernende Zeilen</translation>
    </message>
    <message>
        <source>Rows removed</source>
        <translation>Entfernte Zeilen</translation>
    </message>
    <message>
        <source>Progress of the purge</source>
        <translation>Fortschritt der Bereinigung</translation>
    </message>
    <message>
        <source>The rows are counted when you press &quot;Purge&quot;, before anything goes.</source>
        <translation>Die Zeilen werden gezählt, wenn Sie „Bereinigen“ drücken, bevor etwas entfernt wird.</translation>
    </message>
    <message>
        <source>This will erase the particular information from your database. Continue?</source>
        <translation>Damit werden die gewählten Daten aus Ihrer Datenbank gelöscht. Fortfahren?</translation>
    </message>
    <message>
        <source>Counting the rows to remove...</source>
        <translation>Die zu entfernenden Zeilen werden gezählt …</translation>
    </message>
    <message>
        <source>The rows to remove could not be counted. Nothing was removed so far.</source>
        <translation>Die zu entfernenden Zeilen konnten nicht gezählt werden. Bisher wurde nichts entfernt.</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>nicht bekannt</translation>
    </message>
    <message>
        <source>Removing from: %1</source>
        <translation>Wird entfernt aus: %1</translation>
    </message>
    <message>
        <source>Not removed: %1</source>
        <translation>Nicht entfernt: %1</translation>
    </message>
    <message>
        <source>It is not known whether this was removed: %1</source>
        <translation>Nicht bekannt ist, ob dies entfernt wurde: %1</translation>
    </message>
    <message>
        <source>Not tried after you cancelled: %1</source>
        <translation>Nach Ihrem Abbruch nicht versucht: %1</translation>
    </message>
    <message>
        <source>Purge complete</source>
        <translation>Die Bereinigung ist abgeschlossen</translation>
    </message>
    <message>
        <source>The purge is not complete. What is not named here was removed.</source>
        <translation>Die Bereinigung ist nicht vollständig. Was hier nicht genannt ist, wurde entfernt.</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>PurgePeriod</name>
    <message>
        <source>No record is kept, and no user.</source>
        <translation>Kein Datensatz wird behalten und kein Benutzer.</translation>
    </message>
    <message>
        <source>No record is kept.</source>
        <translation>Kein Datensatz wird behalten.</translation>
    </message>
    <message>
        <source>Kept are the days from %1 to %2. All records before and after go.</source>
        <translation>Behalten werden die Tage von %1 bis %2. Alle Datensätze davor und danach werden entfernt.</translation>
    </message>
    <message>
        <source>Kept are the days from %1 to today, %2. All records before go.</source>
        <translation>Behalten werden die Tage von %1 bis heute, %2. Alle Datensätze davor werden entfernt.</translation>
    </message>
    <message>
        <source>The period that is kept begins on %1, which is after today. All records up to today would go. Continue?</source>
        <translation>Der Zeitraum, der behalten wird, beginnt am %1, also erst nach heute. Alle Datensätze bis heute würden entfernt. Fortfahren?</translation>
    </message>
    <message>
        <source>Kept is nothing up to today, %1: all records before %2 go.</source>
        <translation>Behalten wird nichts bis heute, %1: Alle Datensätze vor %2 werden entfernt.</translation>
    </message>
</context>
<context>
    <name>PurgePeriodBox</name>
    <message>
        <source>from %1, after today</source>
        <translation>ab %1, erst nach heute</translation>
    </message>
    <message>
        <source>from %1</source>
        <translation>ab %1</translation>
    </message>
    <message>
        <source>Save data for period of time</source>
        <translation>Daten dieses Zeitraums behalten</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Last week</source>
        <translation>Letzte Woche</translation>
    </message>
    <message>
        <source>Last month</source>
        <translation>Letzter Monat</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigener</translation>
    </message>
    <message>
        <source>Since:</source>
        <translation>Von:</translation>
    </message>
    <message>
        <source>Until:</source>
        <translation>Bis:</translation>
    </message>
    <message>
        <source>You entered incorrect time period. Please re-enter one of the dates</source>
        <translation>Sie haben einen falschen Zeitraum eingegeben. Bitte geben Sie eines der Daten neu ein</translation>
    </message>
</context>
<context>
    <name>QueryCheck</name>
    <message>
        <source>a quoted text has no end</source>
        <translation>ein Text in Anführungszeichen hat kein Ende</translation>
    </message>
    <message>
        <source>a quoted text holds a back-slash</source>
        <translation>ein Text in Anführungszeichen enthält einen umgekehrten Schrägstrich</translation>
    </message>
    <message>
        <source>a report only reads, but its query says &quot;%1&quot;</source>
        <translation>ein Bericht liest nur, doch in seiner Abfrage steht „%1“</translation>
    </message>
    <message>
        <source>the function &quot;%1&quot; is not one that a report&apos;s query may use</source>
        <translation>die Funktion „%1“ darf die Abfrage eines Berichts nicht verwenden</translation>
    </message>
    <message>
        <source>the sign %1 is not one that a report&apos;s query may use</source>
        <translation>das Zeichen %1 darf die Abfrage eines Berichts nicht verwenden</translation>
    </message>
    <message>
        <source>a query holds no comments; write them outside it</source>
        <translation>eine Abfrage enthält keine Kommentare; schreiben Sie sie außerhalb</translation>
    </message>
    <message>
        <source>the query is empty</source>
        <translation>die Abfrage ist leer</translation>
    </message>
    <message>
        <source>a report&apos;s query begins with SELECT, not with &quot;%1&quot;</source>
        <translation>die Abfrage eines Berichts beginnt mit SELECT, nicht mit „%1“</translation>
    </message>
    <message>
        <source>the query holds more than one statement</source>
        <translation>die Abfrage enthält mehr als eine Anweisung</translation>
    </message>
    <message>
        <source>a parenthesis is closed that was not opened</source>
        <translation>eine Klammer wird geschlossen, die nicht geöffnet wurde</translation>
    </message>
    <message>
        <source>a parenthesis is not closed</source>
        <translation>eine Klammer wird nicht geschlossen</translation>
    </message>
    <message>
        <source>%1 is not a name</source>
        <translation>%1 ist kein Name</translation>
    </message>
    <message>
        <source>%1 is neither a word nor a number</source>
        <translation>%1 ist weder ein Wort noch eine Zahl</translation>
    </message>
    <message>
        <source>the query&apos;s parentheses are nested too deeply</source>
        <translation>die Klammern der Abfrage sind zu tief verschachtelt</translation>
    </message>
    <message>
        <source>%1 needs a blank behind it</source>
        <translation>hinter %1 gehört ein Leerzeichen</translation>
    </message>
    <message>
        <source>there is no column &quot;%1&quot; that a report may read</source>
        <translation>es gibt keine Spalte „%1“, die ein Bericht lesen darf</translation>
    </message>
    <message>
        <source>a report&apos;s query names its columns instead of *</source>
        <translation>die Abfrage eines Berichts nennt ihre Spalten statt *</translation>
    </message>
    <message>
        <source>there is no table &quot;%1&quot; that a report may read</source>
        <translation>es gibt keine Tabelle „%1“, die ein Bericht lesen darf</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be a name in a report&apos;s query</source>
        <translation>„%1“ kann in der Abfrage eines Berichts kein Name sein</translation>
    </message>
    <message>
        <source>the query ends too early</source>
        <translation>die Abfrage endet zu früh</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot stand there in a report&apos;s query</source>
        <translation>„%1“ kann in der Abfrage eines Berichts nicht an dieser Stelle stehen</translation>
    </message>
</context>
<context>
    <name>RangeEditor</name>
    <message>
        <source>Net address</source>
        <translation>Netzadresse</translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation>Subnetzmaske</translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation>Wählen Sie den Eintrag, der gelöscht werden soll</translation>
    </message>
</context>
<context>
    <name>RateDialog</name>
    <message>
        <source>Rate</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>units per Mb</source>
        <translation>Einheiten je MB</translation>
    </message>
    <message>
        <source>Please enter the rate as a number from 0 to 1000000000</source>
        <translation>Bitte geben Sie den Preis als Zahl von 0 bis 1000000000 ein</translation>
    </message>
</context>
<context>
    <name>ReconnectDialog</name>
    <message>
        <source>The Tollbrook service is currently unavailable. This may be caused by the service being stopped or by communication problems. You still can administer users and set options, but they will not be enforced until you restart the service. </source>
        <translation>Der Tollbrook-Dienst ist zurzeit nicht erreichbar. Vielleicht ist er angehalten, oder die Verbindung ist gestört. Sie können weiterhin Benutzer verwalten und Optionen setzen, doch sie werden erst wirksam, wenn Sie den Dienst neu starten. </translation>
    </message>
    <message>
        <source>Try to reconnect?</source>
        <translation>Neu verbinden?</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>Neu verbinden</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Connection restored</source>
        <translation>Verbindung wiederhergestellt</translation>
    </message>
    <message>
        <source>Tollbrook Administrator successfully connected to the service. Since now all changes in user set up will be enforced immediately</source>
        <translation>Tollbrook Administrator hat sich mit dem Dienst verbunden. Von jetzt an werden alle Änderungen an Benutzern sofort wirksam</translation>
    </message>
</context>
<context>
    <name>RefreshPeriodDialog</name>
    <message>
        <source>Refresh period</source>
        <translation>Aktualisierungsintervall</translation>
    </message>
    <message>
        <source>Enter refresh period, min:</source>
        <translation>Aktualisierungsintervall, Min.:</translation>
    </message>
</context>
<context>
    <name>ReportCatalogue</name>
    <message>
        <source>Traffic (Summary) </source>
        <translation>Datenverkehr (Übersicht) </translation>
    </message>
    <message>
        <source>This report shows volume of data downloaded and uploaded by the users. You can choose the particular user(s) to make report on.</source>
        <translation>Dieser Bericht zeigt, wie viele Daten die Benutzer empfangen und gesendet haben. Sie können die Benutzer des Berichts auswählen.</translation>
    </message>
    <message>
        <source>Top 10 Users (Traffic)</source>
        <translation>Top-10-Benutzer (Datenverkehr)</translation>
    </message>
    <message>
        <source>This report presents in graphical form Top 10 users by amount of data downloaded and uploaded. You can choose the particular user(s) to make the report on.</source>
        <translation>Dieser Bericht stellt die zehn Benutzer, die am meisten Daten empfangen und gesendet haben, als Diagramm dar. Sie können die Benutzer des Berichts auswählen.</translation>
    </message>
    <message>
        <source>Traffic (Detailed) </source>
        <translation>Datenverkehr (Einzelheiten) </translation>
    </message>
    <message>
        <source>This report presents user&apos;s Internet-activity on a daily basis: MBytes downloaded and uploaded. You can set period of time to make report on.</source>
        <translation>Dieser Bericht zeigt die Internetnutzung der Benutzer Tag für Tag: empfangene und gesendete MB. Sie können den Zeitraum des Berichts festlegen.</translation>
    </message>
    <message>
        <source>Traffic (Chart)</source>
        <translation>Datenverkehr (Diagramm)</translation>
    </message>
    <message>
        <source>This report presents user&apos;s Internet-activity in chart form (traffic). You can easily see peaks of user activity</source>
        <translation>Dieser Bericht stellt die Internetnutzung der Benutzer als Diagramm dar (Datenverkehr). Spitzen der Nutzung sind leicht zu erkennen</translation>
    </message>
    <message>
        <source>Groups Traffic (Summary)</source>
        <translation>Datenverkehr der Gruppen (Übersicht)</translation>
    </message>
    <message>
        <source>Report shows volume of data received and sent by groups of users. You can choose the particular group(s) to make report on </source>
        <translation>Der Bericht zeigt, wie viele Daten die Gruppen von Benutzern empfangen und gesendet haben. Sie können die Gruppen des Berichts auswählen </translation>
    </message>
    <message>
        <source>Account Balance (Traffic)</source>
        <translation>Kontostand (Datenverkehr)</translation>
    </message>
    <message>
        <source>Report shows users&apos; accounts (in traffic): usage and updates</source>
        <translation>Der Bericht zeigt die Konten der Benutzer (Datenverkehr): Verbrauch und Änderungen</translation>
    </message>
    <message>
        <source>Time (Summary)</source>
        <translation>Zeit (Übersicht)</translation>
    </message>
    <message>
        <source>This report shows summary by users and the time they spent in the Internet</source>
        <translation>Dieser Bericht zeigt eine Übersicht der Benutzer und der Zeit, die sie im Internet verbracht haben</translation>
    </message>
    <message>
        <source>Top 10 Users (Time)</source>
        <translation>Top-10-Benutzer (Zeit)</translation>
    </message>
    <message>
        <source>This report presents in graphical form Top 10 users by the time they spent in the Internet. You can choose the particular user(s) to make the report on.</source>
        <translation>Dieser Bericht stellt die zehn Benutzer, die am meisten Zeit im Internet verbracht haben, als Diagramm dar. Sie können die Benutzer des Berichts auswählen.</translation>
    </message>
    <message>
        <source>Time (Detail)</source>
        <translation>Zeit (Einzelheiten)</translation>
    </message>
    <message>
        <source>This report presents user&apos;s Internet-activity on a daily basis: time spent in the Internet. You can set period of time to make report on.</source>
        <translation>Dieser Bericht zeigt die Internetnutzung der Benutzer Tag für Tag: die im Internet verbrachte Zeit. Sie können den Zeitraum des Berichts festlegen.</translation>
    </message>
    <message>
        <source>Detail Time Top10</source>
        <translation>Zeit der Top 10 (Einzelheiten)</translation>
    </message>
    <message>
        <source>This report presents user&apos;s Internet-activity in chart form (Internet time). You can easily see peaks of user activity</source>
        <translation>Dieser Bericht stellt die Internetnutzung der Benutzer als Diagramm dar (Zeit im Internet). Spitzen der Nutzung sind leicht zu erkennen</translation>
    </message>
    <message>
        <source>Time (Chart)</source>
        <translation>Zeit (Diagramm)</translation>
    </message>
    <message>
        <source>Report shows users&apos; accounts in Provider mode: usage and updates</source>
        <translation>Der Bericht zeigt die Konten der Benutzer im Providermodus: Verbrauch und Änderungen</translation>
    </message>
    <message>
        <source>Provider mode activity</source>
        <translation>Nutzung im Providermodus</translation>
    </message>
    <message>
        <source>Report shows Top 10 users&apos; accounts by usage in Provider mode</source>
        <translation>Der Bericht zeigt die Konten der zehn Benutzer mit dem größten Verbrauch im Providermodus</translation>
    </message>
    <message>
        <source>Top 10 Payers</source>
        <translation>Top-10-Zahler</translation>
    </message>
    <message>
        <source>Report shows Top 10 users by payment they made for the Internet services</source>
        <translation>Der Bericht zeigt die zehn Benutzer, die am meisten für Internetdienste bezahlt haben</translation>
    </message>
    <message>
        <source>Site Access</source>
        <translation>Website-Zugriffe</translation>
    </message>
    <message>
        <source>This report presents list of sites, accessed during software&apos;s work. Hits shows how many times site has been visited</source>
        <translation>Dieser Bericht zeigt die Websites, auf die während der Arbeit der Software zugegriffen wurde. „Aufrufe“ zeigt, wie oft eine Website besucht wurde</translation>
    </message>
    <message>
        <source>Top 10 Sites</source>
        <translation>Top-10-Websites</translation>
    </message>
    <message>
        <source>This report presents top 10 accessed sites</source>
        <translation>Dieser Bericht zeigt die zehn am häufigsten besuchten Websites</translation>
    </message>
    <message>
        <source>User Site Access</source>
        <translation>Website-Zugriffe der Benutzer</translation>
    </message>
    <message>
        <source>This report presents user site access. You can customize this report by user or time period.</source>
        <translation>Dieser Bericht zeigt, auf welche Websites die Benutzer zugegriffen haben. Sie können den Bericht auf Benutzer oder einen Zeitraum einschränken.</translation>
    </message>
    <message>
        <source>Statement</source>
        <translation>Kontoauszug</translation>
    </message>
    <message>
        <source>A statement for each user, on pages of its own: the account with its balances, what was used of credits, traffic and time by day. You can choose the user(s), the group(s) and the period.</source>
        <translation>Ein Kontoauszug für jeden Benutzer, auf eigenen Seiten: das Konto mit seinen Salden, was von Guthaben verbraucht wurde, Verkehr und Zeit nach Tagen. Benutzer, Gruppen und Zeitraum können gewählt werden.</translation>
    </message>
</context>
<context>
    <name>ReportChart</name>
    <message>
        <source>peak %1 on %2</source>
        <translation>Spitze %1 am %2</translation>
    </message>
    <message>
        <source>summed by week</source>
        <translation>nach Wochen summiert</translation>
    </message>
    <message>
        <source>summed by month</source>
        <translation>nach Monaten summiert</translation>
    </message>
    <message>
        <source>peak %1 in the week of %2</source>
        <translation>Spitze %1 in der Woche ab %2</translation>
    </message>
    <message>
        <source>peak %1 in %2</source>
        <translation>Spitze %1 im Monat %2</translation>
    </message>
</context>
<context>
    <name>ReportConnection</name>
    <message>
        <source>The database engine &quot;%1&quot; is not supported.</source>
        <translation>Das Datenbanksystem „%1“ wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>the database gave no reason</source>
        <translation>die Datenbank hat keinen Grund genannt</translation>
    </message>
    <message>
        <source>the loading of extensions cannot be turned off</source>
        <translation>das Laden von Erweiterungen lässt sich nicht abschalten</translation>
    </message>
    <message>
        <source>a report runs one query at a time, and nothing else</source>
        <translation>ein Bericht führt immer nur eine Abfrage aus und nichts anderes</translation>
    </message>
</context>
<context>
    <name>ReportFilterDialog</name>
    <message>
        <source>Users to report on</source>
        <translation>Benutzer des Berichts</translation>
    </message>
    <message>
        <source>Groups to report on</source>
        <translation>Gruppen des Berichts</translation>
    </message>
    <message>
        <source>&lt; &amp;Add</source>
        <translation>&lt; &amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&lt;&lt; Add a&amp;ll</source>
        <translation>&lt;&lt; &amp;Alle hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove &gt;</source>
        <translation>&amp;Entfernen &gt;</translation>
    </message>
    <message>
        <source>R&amp;emove all &gt;&gt;</source>
        <translation>A&amp;lle entfernen &gt;&gt;</translation>
    </message>
    <message>
        <source>Report on &amp;these users:</source>
        <translation>Bericht über &amp;diese Benutzer:</translation>
    </message>
    <message>
        <source>Report on &amp;these groups:</source>
        <translation>Bericht über &amp;diese Gruppen:</translation>
    </message>
    <message>
        <source>&amp;Other users:</source>
        <translation>&amp;Andere Benutzer:</translation>
    </message>
    <message>
        <source>&amp;Other groups:</source>
        <translation>&amp;Andere Gruppen:</translation>
    </message>
    <message>
        <source>With none or all of them chosen the report is made on everybody.</source>
        <translation>Ist keiner oder sind alle ausgewählt, so entsteht der Bericht über alle.</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
    <message>
        <source>Search those chosen</source>
        <translation>In der Auswahl suchen</translation>
    </message>
    <message>
        <source>Search the others</source>
        <translation>In den übrigen suchen</translation>
    </message>
    <message>
        <source>With a search only those that it finds</source>
        <translation>Bei einer Suche nur die gefundenen</translation>
    </message>
</context>
<context>
    <name>ReportHeading</name>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>all available</source>
        <translation>alle vorhandenen</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>users %1</source>
        <translation>Benutzer %1</translation>
    </message>
    <message>
        <source>groups %1</source>
        <translation>Gruppen %1</translation>
    </message>
    <message>
        <source>all users and groups</source>
        <translation>alle Benutzer und Gruppen</translation>
    </message>
    <message>
        <source>all users but %1</source>
        <translation>alle Benutzer außer %1</translation>
    </message>
    <message>
        <source>all groups but %1</source>
        <translation>alle Gruppen außer %1</translation>
    </message>
    <message>
        <source>The report will be on all users but those on the right, also on users that are not monitored.</source>
        <translation>Der Bericht umfasst alle Benutzer außer denen auf der rechten Seite, auch nicht überwachte.</translation>
    </message>
    <message>
        <source>The report will be on all users but those of the group on the right, also on users without a group.</source>
        <translation>Der Bericht umfasst alle Benutzer außer denen der Gruppe auf der rechten Seite, auch Benutzer ohne Gruppe.</translation>
    </message>
    <message>
        <source>Leaving out several groups leaves out none: the report will be on everybody.</source>
        <translation>Werden mehrere Gruppen ausgelassen, so wird keine ausgelassen: Der Bericht umfasst alle.</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>The two letters that stand for the language of these texts</extracomment>
        <translation>de</translation>
    </message>
    <message>
        <source>the day of the run</source>
        <translation>der Tag der Erstellung</translation>
    </message>
    <message>
        <source>last week</source>
        <translation>letzte Woche</translation>
    </message>
    <message>
        <source>last month</source>
        <translation>letzter Monat</translation>
    </message>
    <message>
        <source>previous calendar month</source>
        <translation>voriger Kalendermonat</translation>
    </message>
    <message>
        <source>this year</source>
        <translation>dieses Jahr</translation>
    </message>
</context>
<context>
    <name>ReportHtml</name>
    <message>
        <source>Nothing to report.</source>
        <translation>Nichts zu berichten.</translation>
    </message>
    <message>
        <source>The database holds no data for this period and filter.</source>
        <translation>Für diesen Zeitraum und Filter enthält die Datenbank keine Daten.</translation>
    </message>
    <message>
        <source>all users and groups</source>
        <translation>alle Benutzer und Gruppen</translation>
    </message>
    <message>
        <source>Period: %1</source>
        <translation>Zeitraum: %1</translation>
    </message>
    <message>
        <source>Filter: %1</source>
        <translation>Filter: %1</translation>
    </message>
    <message>
        <source>Made %1</source>
        <translation>Erstellt %1</translation>
    </message>
    <message>
        <source>Sum</source>
        <translation>Zwischensumme</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Total of all</source>
        <translation>Summe aller</translation>
    </message>
</context>
<context>
    <name>ReportLayouts</name>
    <message>
        <source>Account Balance (Traffic)</source>
        <translation>Kontostand (Datenverkehr)</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Saldo</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Credit</source>
        <translation>Guthaben</translation>
    </message>
    <message>
        <source>Credits</source>
        <translation>Guthaben</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Detail Time Top10</source>
        <translation>Zeit der Top 10 (Einzelheiten)</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Läuft ab</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Groups Traffic (Summary)</source>
        <translation>Datenverkehr der Gruppen (Übersicht)</translation>
    </message>
    <message>
        <source>Hits</source>
        <translation>Aufrufe</translation>
    </message>
    <message>
        <source>Hits of the top 10 sites</source>
        <translation>Aufrufe der Top-10-Websites</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>Money used</source>
        <translation>Verbrauchtes Geld</translation>
    </message>
    <message>
        <source>Paid</source>
        <translation>Bezahlt</translation>
    </message>
    <message>
        <source>Payments of the top 10 payers</source>
        <translation>Zahlungen der Top-10-Zahler</translation>
    </message>
    <message>
        <source>Provider mode activity</source>
        <translation>Nutzung im Providermodus</translation>
    </message>
    <message>
        <source>Received</source>
        <translation>Empfangen</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>Gesendet</translation>
    </message>
    <message>
        <source>Site</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Site Access</source>
        <translation>Website-Zugriffe</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>The 10 accounts with the largest usage</source>
        <translation>Die 10 Konten mit dem größten Verbrauch</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Time (Chart)</source>
        <translation>Zeit (Diagramm)</translation>
    </message>
    <message>
        <source>Time (Detail)</source>
        <translation>Zeit (Einzelheiten)</translation>
    </message>
    <message>
        <source>Time (Summary)</source>
        <translation>Zeit (Übersicht)</translation>
    </message>
    <message>
        <source>Time on-line</source>
        <translation>Onlinezeit</translation>
    </message>
    <message>
        <source>Time on-line of the top 10 users</source>
        <translation>Onlinezeit der Top-10-Benutzer</translation>
    </message>
    <message>
        <source>Time on-line per day of the top 10 users</source>
        <translation>Onlinezeit der Top-10-Benutzer pro Tag</translation>
    </message>
    <message>
        <source>Time used, by the day of the record</source>
        <translation>Verbrauchte Zeit je Tag des Datensatzes</translation>
    </message>
    <message>
        <source>Top 10 Payers</source>
        <translation>Top-10-Zahler</translation>
    </message>
    <message>
        <source>Top 10 Sites</source>
        <translation>Top-10-Websites</translation>
    </message>
    <message>
        <source>Top 10 Users (Time)</source>
        <translation>Top-10-Benutzer (Zeit)</translation>
    </message>
    <message>
        <source>Top 10 Users (Traffic)</source>
        <translation>Top-10-Benutzer (Datenverkehr)</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>Traffic (Chart)</source>
        <translation>Datenverkehr (Diagramm)</translation>
    </message>
    <message>
        <source>Traffic (Detailed)</source>
        <translation>Datenverkehr (Einzelheiten)</translation>
    </message>
    <message>
        <source>Traffic (Summary)</source>
        <translation>Datenverkehr (Übersicht)</translation>
    </message>
    <message>
        <source>Traffic of the top 10 users</source>
        <translation>Datenverkehr der Top-10-Benutzer</translation>
    </message>
    <message>
        <source>Traffic per day of the top 10 users</source>
        <translation>Datenverkehr der Top-10-Benutzer pro Tag</translation>
    </message>
    <message>
        <source>Used</source>
        <translation>Verbraucht</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>User Site Access</source>
        <translation>Website-Zugriffe der Benutzer</translation>
    </message>
    <message>
        <source>base units</source>
        <translation>Basiseinheiten</translation>
    </message>
    <message>
        <source>credits</source>
        <translation>Guthaben</translation>
    </message>
    <message>
        <source>days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>Stunden</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>records</source>
        <translation>Datensätze</translation>
    </message>
    <message>
        <source>rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>sites</source>
        <translation>Websites</translation>
    </message>
    <message>
        <source>users</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>visits</source>
        <translation>Besuche</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Rank</source>
        <translation>Rang</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>Anteil</translation>
    </message>
    <message>
        <source>The records of all time accounts stand under each user who has such an account: the sums count a record once for every such user.</source>
        <translation>Unter jedem Benutzer mit einem Zeitkonto stehen die Datensätze aller Zeitkonten: Die Summen zählen einen Datensatz je solchem Benutzer einmal.</translation>
    </message>
    <message>
        <source>The records of all traffic accounts stand under each user who has such an account: the sums count a record once for every such user.</source>
        <translation>Unter jedem Benutzer mit einem Volumenkonto stehen die Datensätze aller Volumenkonten: Die Summen zählen einen Datensatz je solchem Benutzer einmal.</translation>
    </message>
    <message>
        <source>The records of limits are counted as well as those of days: the sums may be larger than those of &quot;Traffic (Summary)&quot;.</source>
        <translation>Die Datensätze der Limits sind mitgezählt: Die Summen können größer sein als die von „Datenverkehr (Übersicht)“.</translation>
    </message>
    <message>
        <source>never</source>
        <translation>nie</translation>
    </message>
</context>
<context>
    <name>ReportOutput</name>
    <message>
        <source>the folder %1 does not exist</source>
        <translation>der Ordner %1 besteht nicht</translation>
    </message>
    <message>
        <source>no font is installed; install fonts-dejavu-core</source>
        <translation>es ist keine Schrift installiert; installieren Sie fonts-dejavu-core</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1: the name must end in %2</source>
        <translation>%1: Der Name muss auf %2 enden</translation>
    </message>
</context>
<context>
    <name>ReportPage</name>
    <message>
        <source>Made %1</source>
        <translation>Erstellt %1</translation>
    </message>
    <message>
        <source>Period: %1</source>
        <translation>Zeitraum: %1</translation>
    </message>
    <message>
        <source>all users and groups</source>
        <translation>alle Benutzer und Gruppen</translation>
    </message>
    <message>
        <source>Filter: %1</source>
        <translation>Filter: %1</translation>
    </message>
    <message>
        <source>Nothing to report</source>
        <translation>Nichts zu berichten</translation>
    </message>
    <message>
        <source>The database holds no data for this period and filter.</source>
        <translation>Für diesen Zeitraum und Filter enthält die Datenbank keine Daten.</translation>
    </message>
    <message>
        <source>Total, %1</source>
        <translation>Summe, %1</translation>
    </message>
    <message>
        <source>Grand total, %1</source>
        <translation>Gesamtsumme, %1</translation>
    </message>
    <message>
        <source>Total of these %1</source>
        <translation>Summe dieser %1</translation>
    </message>
    <message>
        <source>Total of all %1</source>
        <translation>Summe aller %1</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>%1 (continued)</source>
        <translation>%1 (Fortsetzung)</translation>
    </message>
    <message>
        <source>(this row cannot be read)</source>
        <translation>(diese Zeile kann nicht gelesen werden)</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Zusammenfassung</translation>
    </message>
    <message>
        <source>These are the largest of %1.</source>
        <translation>Dies sind die größten von %1.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>page %1: %2</source>
        <translation>Seite %1: %2</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
</context>
<context>
    <name>ReportRuns</name>
    <message>
        <source>not known: the service manager does not answer</source>
        <translation>unbekannt: Die Dienstverwaltung antwortet nicht</translation>
    </message>
    <message>
        <source>never: the timer is not set up</source>
        <translation>nie: Der Zeitgeber ist nicht eingerichtet</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>cannot be made: its file is damaged</source>
        <translation>kann nicht erstellt werden: Die Datei ist beschädigt</translation>
    </message>
    <message>
        <source>none since the machine was started</source>
        <translation>keiner seit dem Start des Rechners</translation>
    </message>
    <message>
        <source>running now</source>
        <translation>läuft gerade</translation>
    </message>
    <message>
        <source>failed: %1</source>
        <translation>fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>not known: %1</source>
        <translation>nicht bekannt: %1</translation>
    </message>
    <message>
        <source>cannot be made: its name is not allowed</source>
        <translation>kann nicht erstellt werden: Der Name ist nicht zulässig</translation>
    </message>
</context>
<context>
    <name>ReportSchedule</name>
    <message>
        <source>not scheduled</source>
        <translation>kein Zeitplan</translation>
    </message>
    <message>
        <source>each day at %1</source>
        <translation>jeden Tag um %1</translation>
    </message>
    <message>
        <source>each %1 at %2</source>
        <translation>jeden %1 um %2</translation>
    </message>
    <message>
        <source>on day %1 of each month at %2</source>
        <translation>am %1. jedes Monats um %2</translation>
    </message>
</context>
<context>
    <name>ReportSheet</name>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>a row could not be written</source>
        <translation>eine Zeile konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Total of these %1</source>
        <translation>Summe dieser %1</translation>
    </message>
    <message>
        <source>Total of all %1</source>
        <translation>Summe aller %1</translation>
    </message>
    <message>
        <source>Period: %1</source>
        <translation>Zeitraum: %1</translation>
    </message>
    <message>
        <source>all users and groups</source>
        <translation>alle Benutzer und Gruppen</translation>
    </message>
    <message>
        <source>Filter: %1</source>
        <translation>Filter: %1</translation>
    </message>
    <message>
        <source>Made %1</source>
        <translation>Erstellt %1</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
</context>
<context>
    <name>ReportStatus</name>
    <message>
        <source>done</source>
        <translation>erstellt</translation>
    </message>
    <message>
        <source>nothing to report</source>
        <translation>nichts zu berichten</translation>
    </message>
    <message>
        <source>what is saved cannot be made</source>
        <translation>das Gespeicherte kann nicht erstellt werden</translation>
    </message>
    <message>
        <source>the database could not be read</source>
        <translation>die Datenbank konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>the layout file is not in order</source>
        <translation>die Layoutdatei ist nicht in Ordnung</translation>
    </message>
    <message>
        <source>the file could not be written</source>
        <translation>die Datei konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the mail was not sent</source>
        <translation>die E-Mail wurde nicht verschickt</translation>
    </message>
    <message>
        <source>the timer could not be set up</source>
        <translation>der Zeitgeber konnte nicht eingerichtet werden</translation>
    </message>
    <message>
        <source>the program ended before its time</source>
        <translation>das Programm endete vorzeitig</translation>
    </message>
</context>
<context>
    <name>ReportTable</name>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
</context>
<context>
    <name>ReportTimer</name>
    <message>
        <source>%1
As root, this does it: tollbrook-report --schedule &quot;%2&quot;</source>
        <translation>%1
Als root erledigt es: tollbrook-report --schedule &quot;%2&quot;</translation>
    </message>
</context>
<context>
    <name>ReportUnit</name>
    <message>
        <source>thousands</source>
        <translation>Tausend</translation>
    </message>
    <message>
        <source>millions</source>
        <translation>Millionen</translation>
    </message>
    <message>
        <source>billions</source>
        <translation>Milliarden</translation>
    </message>
    <message>
        <source>trillions</source>
        <translation>Billionen</translation>
    </message>
    <message>
        <source>thousand %1</source>
        <translation>Tausend %1</translation>
    </message>
    <message>
        <source>million %1</source>
        <translation>Millionen %1</translation>
    </message>
    <message>
        <source>billion %1</source>
        <extracomment>1 000 000 000</extracomment>
        <translation>Milliarden %1</translation>
    </message>
    <message>
        <source>trillion %1</source>
        <extracomment>1 000 000 000 000</extracomment>
        <translation>Billionen %1</translation>
    </message>
</context>
<context>
    <name>ReportViewer</name>
    <message>
        <source>Stop</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Please select a report</source>
        <translation>Bitte wählen Sie einen Bericht</translation>
    </message>
    <message>
        <source>The report was stopped.</source>
        <translation>Der Bericht wurde abgebrochen.</translation>
    </message>
    <message>
        <source>No font is installed; install fonts-dejavu-core</source>
        <translation>Es ist keine Schrift installiert; installieren Sie fonts-dejavu-core</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 rows read</source>
        <translation>%1 Zeilen gelesen</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
    <message>
        <source>The report was not saved.</source>
        <translation>Der Bericht wurde nicht gespeichert.</translation>
    </message>
    <message>
        <source>Pages of the report</source>
        <translation>Seiten des Berichts</translation>
    </message>
    <message>
        <source>Progress of the report</source>
        <translation>Fortschritt des Berichts</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not in this report.</source>
        <translation>„%1“ kommt in diesem Bericht nicht vor.</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 gibt es bereits.
Soll die Datei ersetzt werden?</translation>
    </message>
    <message>
        <source>Do you want a file of its own for each user?
The users&apos; names become part of the files&apos; names.</source>
        <translation>Soll jeder Benutzer eine eigene Datei bekommen?
Die Namen der Benutzer werden Teil der Dateinamen.</translation>
    </message>
    <message>
        <source>%1 and perhaps others already exist.
Do you want to replace them?</source>
        <translation>%1 und vielleicht weitere sind bereits vorhanden.
Sollen sie ersetzt werden?</translation>
    </message>
    <message>
        <source>%1 of %2 statements were saved in %3</source>
        <translation>%1 von %2 Kontoauszügen wurden in %3 gespeichert</translation>
    </message>
    <message>
        <source>The rows that show are those of before.</source>
        <translation>Gezeigt werden die Zeilen von vorher.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not found, but not all rows could be read: %2</source>
        <translation>„%1“ wurde nicht gefunden, aber nicht alle Zeilen konnten gelesen werden: %2</translation>
    </message>
</context>
<context>
    <name>ReportsDialog</name>
    <message>
        <source>Reports</source>
        <translation>Berichte</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>Use data to report on:</source>
        <translation>Daten für den Bericht:</translation>
    </message>
    <message>
        <source>All available</source>
        <translation>Alle vorhandenen</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Last week</source>
        <translation>Letzte Woche</translation>
    </message>
    <message>
        <source>Last month</source>
        <translation>Letzter Monat</translation>
    </message>
    <message>
        <source>Custom </source>
        <translation>Eigener </translation>
    </message>
    <message>
        <source>Custom period</source>
        <translation>Eigener Zeitraum</translation>
    </message>
    <message>
        <source>Since</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>Until</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Users to report on...</source>
        <translation>Benutzer des Berichts …</translation>
    </message>
    <message>
        <source>Groups to report on...</source>
        <translation>Gruppen des Berichts …</translation>
    </message>
    <message>
        <source>Generate report</source>
        <translation>Bericht erstellen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Reading the users...</source>
        <translation>Die Benutzer werden gelesen …</translation>
    </message>
    <message>
        <source>Reading the groups...</source>
        <translation>Die Gruppen werden gelesen …</translation>
    </message>
    <message>
        <source>The users cannot be read.</source>
        <translation>Die Benutzer können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The groups cannot be read.</source>
        <translation>Die Gruppen können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>You entered incorrect time period. Please re-enter one of the dates</source>
        <translation>Sie haben einen falschen Zeitraum eingegeben. Bitte geben Sie eines der Daten neu ein</translation>
    </message>
    <message>
        <source>Select a report, the period and, if you like, users or groups, and press &quot;Generate report&quot;. Users and groups narrow a report only together with a period. The report can be printed or saved as PDF, CSV, HTML or XLSX.</source>
        <translation>Wählen Sie einen Bericht, den Zeitraum und, wenn Sie mögen, Benutzer oder Gruppen, und drücken Sie „Bericht erstellen“. Benutzer und Gruppen engen einen Bericht nur zusammen mit einem Zeitraum ein. Der Bericht kann gedruckt oder als PDF, CSV, HTML oder XLSX gespeichert werden.</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Saved reports...</source>
        <translation>Gespeicherte Berichte …</translation>
    </message>
    <message>
        <source>The users and groups cannot be read.</source>
        <translation>Die Benutzer und Gruppen können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The user or group of this line does not exist any more.</source>
        <translation>Den Benutzer oder die Gruppe dieser Zeile gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>Not made as planned: %1. See &quot;Saved reports...&quot;.</source>
        <translation>Nicht wie geplant erstellt: %1. Siehe „Gespeicherte Berichte …“.</translation>
    </message>
    <message>
        <source>None of the users or groups that the report is on exists any more.</source>
        <translation>Von den Benutzern oder Gruppen des Berichts gibt es keinen mehr.</translation>
    </message>
    <message>
        <source>Cannot be read: %1. See &quot;Saved reports...&quot;.</source>
        <translation>Nicht zu lesen: %1. Siehe „Gespeicherte Berichte …“.</translation>
    </message>
</context>
<context>
    <name>Rights</name>
    <message>
        <source>You may look at everything and change nothing: for this one must be in the group tollbrook.</source>
        <translation>Sie können sich alles ansehen und nichts ändern: dafür muss man in der Gruppe tollbrook sein.</translation>
    </message>
</context>
<context>
    <name>RowModel</name>
    <message>
        <source>cannot be read</source>
        <translation>nicht lesbar</translation>
    </message>
</context>
<context>
    <name>RowStore</name>
    <message>
        <source>no temporary file in %1: %2</source>
        <translation>keine temporäre Datei in %1: %2</translation>
    </message>
    <message>
        <source>the temporary folder %1 cannot be written: %2</source>
        <translation>in den temporären Ordner %1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>the temporary folder %1 cannot be read: %2</source>
        <translation>der temporäre Ordner %1 kann nicht gelesen werden: %2</translation>
    </message>
</context>
<context>
    <name>RowTable</name>
    <message>
        <source>Rows of the report</source>
        <translation>Zeilen des Berichts</translation>
    </message>
    <message>
        <source>Only rows with</source>
        <translation>Nur Zeilen mit</translation>
    </message>
    <message>
        <source>Column that is searched</source>
        <translation>Spalte, die durchsucht wird</translation>
    </message>
    <message>
        <source>in any column</source>
        <translation>in jeder Spalte</translation>
    </message>
    <message>
        <source>in &quot;%1&quot;</source>
        <translation>in „%1“</translation>
    </message>
    <message>
        <source>%1 of %2 rows</source>
        <translation>%1 von %2 Zeilen</translation>
    </message>
    <message>
        <source>Nothing was copied. %1</source>
        <translation>Es wurde nichts kopiert. %1</translation>
    </message>
    <message>
        <source>Only the first %1 of %2 selected rows were copied. &quot;Save as...&quot; takes all rows of the report.</source>
        <translation>Nur die ersten %1 von %2 ausgewählten Zeilen wurden kopiert. „Speichern unter …“ nimmt alle Zeilen des Berichts.</translation>
    </message>
</context>
<context>
    <name>RunRecord</name>
    <message>
        <source>&quot;ended&quot; is not a time</source>
        <translation>„ended“ ist keine Zeit</translation>
    </message>
    <message>
        <source>it is no TOML</source>
        <translation>es ist kein TOML</translation>
    </message>
    <message>
        <source>cannot be removed: %1</source>
        <translation>kann nicht entfernt werden: %1</translation>
    </message>
</context>
<context>
    <name>SaveReport</name>
    <message>
        <source>Not all settings were written.</source>
        <translation>Nicht alle Einstellungen wurden geschrieben.</translation>
    </message>
    <message>
        <source>Left as they were: %1.</source>
        <translation>Unverändert blieben: %1.</translation>
    </message>
    <message>
        <source>It is not known whether everything was written. Please look at it again.</source>
        <translation>Ob alles geschrieben wurde, ist nicht bekannt. Bitte sehen Sie noch einmal nach.</translation>
    </message>
    <message>
        <source>What is not named here was written as it was entered.</source>
        <translation>Was hier nicht genannt ist, wurde so geschrieben, wie es eingegeben wurde.</translation>
    </message>
</context>
<context>
    <name>SaveReportDialog</name>
    <message>
        <source>A file for each &amp;user</source>
        <translation>Eine Datei für jeden &amp;Benutzer</translation>
    </message>
    <message>
        <source>Leave the &amp;former file when there is nothing to report</source>
        <translation>&amp;Vorige Datei behalten, wenn es nichts zu berichten gibt</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen …</translation>
    </message>
    <message>
        <source>Report:</source>
        <translation>Bericht:</translation>
    </message>
    <message>
        <source>On:</source>
        <translation>Über:</translation>
    </message>
    <message>
        <source>all users and groups</source>
        <translation>alle Benutzer und Gruppen</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Period:</source>
        <translation>&amp;Zeitraum:</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Datei:</translation>
    </message>
    <message>
        <source>Send to (&amp;mail):</source>
        <translation>Senden an (E-&amp;Mail):</translation>
    </message>
    <message>
        <source>Without an address the file is not sent. Reports that are made at their times are written by the account tollbrook-report, whose folder is %1.</source>
        <translation>Ohne Adresse wird die Datei nicht verschickt. Berichte, die nach Zeitplan erstellt werden, schreibt das Konto tollbrook-report, dessen Ordner %1 ist.</translation>
    </message>
    <message>
        <source>File of the report</source>
        <translation>Datei des Berichts</translation>
    </message>
    <message>
        <source>A report is saved as &quot;%1&quot; already.
Do you want to replace it?</source>
        <translation>Unter „%1“ ist schon ein Bericht gespeichert.
Möchten Sie ihn ersetzen?</translation>
    </message>
    <message>
        <source>The report &quot;%1&quot; was deleted meanwhile.
Do you want to save it again?</source>
        <translation>Der Bericht „%1“ wurde inzwischen gelöscht.
Möchten Sie ihn wieder speichern?</translation>
    </message>
    <message>
        <source>The report &quot;%1&quot; was changed meanwhile.
Do you want to replace it?</source>
        <translation>Der Bericht „%1“ wurde inzwischen geändert.
Möchten Sie ihn ersetzen?</translation>
    </message>
</context>
<context>
    <name>SaveSteps</name>
    <message>
        <source>Whether a user has the excluded address %1 is not known.</source>
        <translation>Ob ein Benutzer die ausgeschlossene Adresse %1 hat, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The users of excluded addresses were not removed, since the addresses cannot be written either.</source>
        <translation>Die Benutzer ausgeschlossener Adressen wurden nicht entfernt, weil auch die Adressen nicht geschrieben werden können.</translation>
    </message>
    <message>
        <source>The protocol %1 and its ports stay as they were.</source>
        <translation>Das Protokoll %1 und seine Ports bleiben, wie sie waren.</translation>
    </message>
</context>
<context>
    <name>SavedReport</name>
    <message>
        <source>&quot;%1&quot; and &quot;%2&quot; cannot stand together</source>
        <translation>„%1“ und „%2“ können nicht zusammen stehen</translation>
    </message>
    <message>
        <source>&quot;at&quot; is not a time such as 02:15</source>
        <translation>„at“ ist keine Uhrzeit wie 02:15</translation>
    </message>
    <message>
        <source>&quot;report&quot; names none of the reports</source>
        <translation>„report“ nennt keinen der Berichte</translation>
    </message>
    <message>
        <source>The users and groups to report on must name somebody.</source>
        <translation>Die Benutzer und Gruppen des Berichts müssen jemanden nennen.</translation>
    </message>
    <message>
        <source>Users and groups narrow a report only together with a period.</source>
        <translation>Benutzer und Gruppen schränken einen Bericht nur zusammen mit einem Zeitraum ein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no period.</source>
        <translation>„%1“ ist kein Zeitraum.</translation>
    </message>
    <message>
        <source>The file needs its full path, and must end in %1.</source>
        <translation>Die Datei braucht ihren vollständigen Pfad und muss auf %1 enden.</translation>
    </message>
    <message>
        <source>Only statements can be written as a file for each user.</source>
        <translation>Nur Kontoauszüge können als eine Datei für jeden Benutzer geschrieben werden.</translation>
    </message>
    <message>
        <source>A mail carries one file, not a file for each user.</source>
        <translation>Eine E-Mail trägt eine Datei, nicht eine Datei für jeden Benutzer.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no mail address.</source>
        <translation>„%1“ ist keine E-Mail-Adresse.</translation>
    </message>
    <message>
        <source>A name has letters, digits, blanks, &quot;-&quot;, &quot;_&quot; and &quot;.&quot;, and begins with a letter or a digit.</source>
        <translation>Ein Name besteht aus Buchstaben, Ziffern, Leerzeichen, „-“, „_“ und „.“ und beginnt mit einem Buchstaben oder einer Ziffer.</translation>
    </message>
    <message>
        <source>The name is too long.</source>
        <translation>Der Name ist zu lang.</translation>
    </message>
    <message>
        <source>cannot be read: permission denied</source>
        <translation>kann nicht gelesen werden: keine Berechtigung</translation>
    </message>
    <message>
        <source>does not exist</source>
        <translation>existiert nicht</translation>
    </message>
    <message>
        <source>cannot be removed: %1</source>
        <translation>kann nicht entfernt werden: %1</translation>
    </message>
    <message>
        <source>it is no TOML</source>
        <translation>es ist kein TOML</translation>
    </message>
    <message>
        <source>&quot;schedule&quot; is not a [schedule]</source>
        <translation>„schedule“ ist kein Abschnitt [schedule]</translation>
    </message>
    <message>
        <source>a schedule needs &quot;every&quot;</source>
        <translation>ein Zeitplan braucht „every“</translation>
    </message>
    <message>
        <source>The name of the file has a line break or another control character.</source>
        <translation>Der Name der Datei enthält einen Zeilenumbruch oder ein anderes Steuerzeichen.</translation>
    </message>
    <message>
        <source>has a name that no report can have</source>
        <translation>hat einen Namen, den kein Bericht haben kann</translation>
    </message>
</context>
<context>
    <name>SavedReportsDialog</name>
    <message>
        <source>Saved reports</source>
        <translation>Gespeicherte Berichte</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Zeitplan</translation>
    </message>
    <message>
        <source>Next run</source>
        <translation>Nächster Lauf</translation>
    </message>
    <message>
        <source>Last run</source>
        <translation>Letzter Lauf</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>No report is saved yet. Choose a report, its period and its users in the window behind, and press &quot;Save selection as...&quot;.</source>
        <translation>Noch ist kein Bericht gespeichert. Wählen Sie im Fenster dahinter einen Bericht, seinen Zeitraum und seine Benutzer, und drücken Sie „Auswahl speichern als …“.</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Save se&amp;lection as...</source>
        <translation>&amp;Auswahl speichern als …</translation>
    </message>
    <message>
        <source>C&amp;hange...</source>
        <translation>Än&amp;dern …</translation>
    </message>
    <message>
        <source>&amp;Schedule...</source>
        <translation>&amp;Zeitplan …</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>File: %1</source>
        <translation>Datei: %1</translation>
    </message>
    <message>
        <source>Sent to: %1</source>
        <translation>Gesendet an: %1</translation>
    </message>
    <message>
        <source>The last run failed. What it said: journalctl -u &apos;%1&apos;</source>
        <translation>Der letzte Lauf ist fehlgeschlagen. Seine Meldungen: journalctl -u &apos;%1&apos;</translation>
    </message>
    <message>
        <source>The timer is not set up. As root: tollbrook-report --schedule &quot;%1&quot;</source>
        <translation>Der Zeitgeber ist nicht eingerichtet. Als root: tollbrook-report --schedule &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Select a report in the window behind; it is what will be saved.</source>
        <translation>Wählen Sie im Fenster dahinter einen Bericht; er wird gespeichert.</translation>
    </message>
    <message>
        <source>the users and groups that were chosen</source>
        <translation>die gewählten Benutzer und Gruppen</translation>
    </message>
    <message>
        <source>Do you want to delete the saved report?</source>
        <translation>Möchten Sie den gespeicherten Bericht löschen?</translation>
    </message>
    <message>
        <source>The report is deleted, but its timer may still be there.</source>
        <translation>Der Bericht ist gelöscht, aber sein Zeitgeber ist vielleicht noch da.</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Schedule of %1</source>
        <translation>Zeitplan von %1</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Each day</source>
        <translation>Jeden Tag</translation>
    </message>
    <message>
        <source>Each week</source>
        <translation>Jede Woche</translation>
    </message>
    <message>
        <source>Each month</source>
        <translation>Jeden Monat</translation>
    </message>
    <message>
        <source>&amp;Make the report:</source>
        <translation>Bericht &amp;erstellen:</translation>
    </message>
    <message>
        <source>&amp;On:</source>
        <translation>A&amp;m:</translation>
    </message>
    <message>
        <source>&amp;At:</source>
        <translation>&amp;Um:</translation>
    </message>
    <message>
        <source>Next run:</source>
        <translation>Nächster Lauf:</translation>
    </message>
    <message>
        <source>Last run:</source>
        <translation>Letzter Lauf:</translation>
    </message>
    <message>
        <source>day %1</source>
        <translation>Tag %1</translation>
    </message>
    <message>
        <source>The schedule is saved, but its timer is not set up.</source>
        <translation>Der Zeitplan ist gespeichert, aber sein Zeitgeber ist nicht eingerichtet.</translation>
    </message>
    <message>
        <source>The schedule was changed meanwhile: %1.
Do you want to replace it?</source>
        <translation>Der Zeitplan wurde inzwischen geändert: %1.
Möchten Sie ihn ersetzen?</translation>
    </message>
</context>
<context>
    <name>Schema</name>
    <message>
        <source>The statement &quot;%1&quot; failed: %2</source>
        <translation>Die Anweisung „%1“ ist fehlgeschlagen: %2</translation>
    </message>
    <message>
        <source>The data source &quot;%1&quot; cannot be opened: %2</source>
        <translation>Die Datenquelle „%1“ kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>The database of &quot;%1&quot; already has a table &quot;%2&quot;. Nothing was changed.</source>
        <translation>Die Datenbank von „%1“ hat bereits eine Tabelle „%2“. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>The encoding of the database of &quot;%1&quot; cannot be read: %2</source>
        <translation>Der Zeichensatz der Datenbank von „%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The database of &quot;%1&quot; is in %2. Only one in UTF8 keeps every text; make another one.</source>
        <translation>Die Datenbank von „%1“ ist in %2. Nur eine in UTF8 behält jeden Text; legen Sie eine andere an.</translation>
    </message>
</context>
<context>
    <name>SchemaUpgrade</name>
    <message>
        <source>step %1: %2</source>
        <translation>Schritt %1: %2</translation>
    </message>
    <message>
        <source>The data source &quot;%1&quot; cannot be opened: %2</source>
        <translation>Die Datenquelle „%1“ kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>The version of the tables of &quot;%1&quot; cannot be read: %2</source>
        <translation>Die Version der Tabellen von „%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The tables of &quot;%1&quot; have version %2; this program is made for version %3.</source>
        <translation>Die Tabellen von „%1“ haben die Version %2; dieses Programm ist für die Version %3 gemacht.</translation>
    </message>
    <message>
        <source>Step %1 failed: %2</source>
        <translation>Schritt %1 ist fehlgeschlagen: %2</translation>
    </message>
</context>
<context>
    <name>SchemaVersion</name>
    <message>
        <source>The database has version %1 of the tables, and this program is made for version %2. Bring it up to date with: %3</source>
        <translation>Die Tabellen der Datenbank haben Version %1, und dieses Programm ist für Version %2 gemacht. Auf den neuesten Stand bringt sie: %3</translation>
    </message>
    <message>
        <source>The database has version %1 of the tables, and this program knows them up to version %2 only. Install the version of the program that belongs to it.</source>
        <translation>Die Tabellen der Datenbank haben Version %1, und dieses Programm kennt sie nur bis Version %2. Installieren Sie die Version des Programms, die dazu gehört.</translation>
    </message>
    <message>
        <source>The database is not whole: a restore or a copy into it was broken off, or is still at work. Run it again, to its end.</source>
        <translation>Die Datenbank ist nicht vollständig: Eine Wiederherstellung oder Kopie in sie wurde abgebrochen oder läuft noch. Führen Sie sie noch einmal bis zum Ende aus.</translation>
    </message>
    <message>
        <source>The database has no tables yet, or none that the account may see. &quot;tollbrook-db create&quot; makes them.</source>
        <translation>Die Datenbank hat noch keine Tabellen, oder keine, die das Konto sehen darf. „tollbrook-db create“ legt sie an.</translation>
    </message>
</context>
<context>
    <name>ServiceConnection</name>
    <message>
        <source>Could not create instance</source>
        <translation>Die Instanz konnte nicht erstellt werden</translation>
    </message>
</context>
<context>
    <name>ServiceControlDialog</name>
    <message>
        <source>Service is started</source>
        <translation>Der Dienst läuft</translation>
    </message>
    <message>
        <source>Service is stopped</source>
        <translation>Der Dienst ist angehalten</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Service control</source>
        <translation>Dienststeuerung</translation>
    </message>
</context>
<context>
    <name>ServiceGuard</name>
    <message>
        <source>Can not find records about Tollbrook Service!</source>
        <translation>Über den Tollbrook-Dienst ist nichts eingetragen!</translation>
    </message>
    <message>
        <source>Please stop the Tollbrook Service before proceeding</source>
        <translation>Bitte halten Sie den Tollbrook-Dienst an, bevor Sie fortfahren</translation>
    </message>
    <message>
        <source>This command may be executed only on a server machine</source>
        <translation>Dieser Befehl kann nur auf dem Server ausgeführt werden</translation>
    </message>
    <message>
        <source>To make any changes in NIC options you have to stop the service before</source>
        <translation>Um die Netzwerkkarte zu ändern, müssen Sie vorher den Dienst anhalten</translation>
    </message>
</context>
<context>
    <name>ServiceProgress</name>
    <message>
        <source>Trying to start the service...</source>
        <translation>Der Dienst wird gestartet …</translation>
    </message>
    <message>
        <source>Service started successfully</source>
        <translation>Der Dienst wurde gestartet</translation>
    </message>
    <message>
        <source>Failed to start the service</source>
        <translation>Der Dienst konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>Trying to connect to the service...</source>
        <translation>Verbindung zum Dienst wird hergestellt …</translation>
    </message>
    <message>
        <source>Connected to the service successfully</source>
        <translation>Mit dem Dienst verbunden</translation>
    </message>
    <message>
        <source>Failed to connect to the service</source>
        <translation>Keine Verbindung zum Dienst</translation>
    </message>
    <message>
        <source>Failed to complete the process</source>
        <translation>Der Vorgang konnte nicht abgeschlossen werden</translation>
    </message>
    <message>
        <source>Trying to stop the service...</source>
        <translation>Der Dienst wird angehalten …</translation>
    </message>
    <message>
        <source>Service was stopped successfully</source>
        <translation>Der Dienst wurde angehalten</translation>
    </message>
    <message>
        <source>Failed to stop the service</source>
        <translation>Der Dienst konnte nicht angehalten werden</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
</context>
<context>
    <name>SessionConnection</name>
    <message>
        <source>The database engine &quot;%1&quot; is not supported.</source>
        <translation>Das Datenbanksystem „%1“ wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>The database server is a read-only standby, or cut off from its cluster.</source>
        <translation>Der Datenbankserver ist ein Standby-Server, der nur gelesen werden kann, oder von seinem Cluster abgeschnitten.</translation>
    </message>
    <message>
        <source>There is no data source of this name.</source>
        <translation>Es gibt keine Datenquelle dieses Namens.</translation>
    </message>
    <message>
        <source>The database session is not open.</source>
        <translation>Die Datenbankverbindung ist nicht geöffnet.</translation>
    </message>
</context>
<context>
    <name>SessionThread</name>
    <message>
        <source>A call into the database was given up.</source>
        <translation>Ein Aufruf der Datenbank wurde aufgegeben.</translation>
    </message>
</context>
<context>
    <name>SettingsFailure</name>
    <message>
        <source>The settings file &quot;%1&quot; %2.</source>
        <translation>Die Einstellungsdatei „%1“ %2.</translation>
    </message>
    <message>
        <source>Line %1 of the settings file &quot;%2&quot; %3.</source>
        <translation>Zeile %1 der Einstellungsdatei „%2“ %3.</translation>
    </message>
</context>
<context>
    <name>SettingsNames</name>
    <message>
        <source>the network adapter</source>
        <translation>die Netzwerkkarte</translation>
    </message>
    <message>
        <source>the address ranges and excluded addresses</source>
        <translation>die Adressbereiche und ausgeschlossenen Adressen</translation>
    </message>
    <message>
        <source>the authorization</source>
        <translation>die Anmeldung</translation>
    </message>
    <message>
        <source>the currency</source>
        <translation>die Währung</translation>
    </message>
    <message>
        <source>the properties of new users</source>
        <translation>die Eigenschaften neuer Benutzer</translation>
    </message>
    <message>
        <source>the excluded addresses</source>
        <translation>die ausgeschlossenen Adressen</translation>
    </message>
    <message>
        <source>the identification of users</source>
        <translation>die Erkennung der Benutzer</translation>
    </message>
    <message>
        <source>the monitored protocols</source>
        <translation>die überwachten Protokolle</translation>
    </message>
    <message>
        <source>the monitored protocols and identification of users</source>
        <translation>die überwachten Protokolle und die Erkennung der Benutzer</translation>
    </message>
    <message>
        <source>the price</source>
        <translation>der Preis</translation>
    </message>
    <message>
        <source>the address ranges</source>
        <translation>die Adressbereiche</translation>
    </message>
    <message>
        <source>the update period</source>
        <translation>der Aktualisierungszeitraum</translation>
    </message>
    <message>
        <source>the update period, control of MAC addresses and client program</source>
        <translation>der Aktualisierungszeitraum, die Kontrolle der MAC-Adressen und das Clientprogramm</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Not all settings could be read. Those are shown as if they were missing, and cannot be written before the file is mended.</source>
        <translation>Nicht alle Einstellungen konnten gelesen werden. Diese werden angezeigt, als fehlten sie, und können erst geschrieben werden, wenn die Datei in Ordnung gebracht ist.</translation>
    </message>
    <message>
        <source>Reading the protocols...</source>
        <translation>Die Protokolle werden gelesen …</translation>
    </message>
    <message>
        <source>The protocols could not be read. They are not shown, and stay as they are.</source>
        <translation>Die Protokolle konnten nicht gelesen werden. Sie werden nicht angezeigt und bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>The protocols could not be read from the database. They stay as they are.</source>
        <translation>Die Protokolle konnten nicht aus der Datenbank gelesen werden. Sie bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Storing the settings...</source>
        <translation>Die Einstellungen werden gespeichert …</translation>
    </message>
</context>
<context>
    <name>Settle</name>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>%1: changed meanwhile to &quot;%2&quot;. Overwrite?</source>
        <translation>%1: inzwischen zu „%2“ geändert. Überschreiben?</translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation>Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Traffic limit, Mb</source>
        <translation>Datenlimit, MB</translation>
    </message>
    <message>
        <source>Time limit, Hr</source>
        <translation>Zeitlimit, Std.</translation>
    </message>
    <message>
        <source>Price of traffic</source>
        <translation>Preis des Datenverkehrs</translation>
    </message>
    <message>
        <source>Access type</source>
        <translation>Zugangsart</translation>
    </message>
</context>
<context>
    <name>Statement</name>
    <message>
        <source>base units</source>
        <translation>Basiseinheiten</translation>
    </message>
    <message>
        <source>the users have changed while they were read</source>
        <translation>die Benutzer haben sich geändert, während sie gelesen wurden</translation>
    </message>
    <message>
        <source>Nothing was used in this period.</source>
        <translation>In diesem Zeitraum wurde nichts verbraucht.</translation>
    </message>
    <message>
        <source>Opening balance</source>
        <translation>Anfangssaldo</translation>
    </message>
    <message>
        <source>Closing balance</source>
        <translation>Endsaldo</translation>
    </message>
    <message>
        <source>Rounding</source>
        <translation>Rundung</translation>
    </message>
    <message>
        <source>%1, %2 left</source>
        <translation>%1, es bleiben %2</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>h</source>
        <translation>h</translation>
    </message>
    <message>
        <source>Statement</source>
        <translation>Kontoauszug</translation>
    </message>
    <message>
        <source>lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Received</source>
        <translation>Empfangen</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>Gesendet</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Used</source>
        <translation>Verbraucht</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Saldo</translation>
    </message>
    <message>
        <source>Rest of %1 (%2), closed</source>
        <translation>Rest von %1 (%2), geschlossen</translation>
    </message>
    <message>
        <source>unlimited use</source>
        <translation>unbegrenzter Nutzung</translation>
    </message>
    <message>
        <source>Credit of %1, until %2</source>
        <translation>Guthaben von %1, bis %2</translation>
    </message>
    <message>
        <source>Credit of %1</source>
        <translation>Guthaben von %1</translation>
    </message>
    <message>
        <source>Used of %1 (%2) before this day, known as a total only: %3</source>
        <translation>Verbraucht von %1 (%2) vor diesem Tag, nur als Summe bekannt: %3</translation>
    </message>
    <message>
        <source>Used of %1 (%2), known as a total only: %3</source>
        <translation>Verbraucht von %1 (%2), nur als Summe bekannt: %3</translation>
    </message>
    <message>
        <source>Used of %1 (%2)</source>
        <translation>Verbraucht von %1 (%2)</translation>
    </message>
</context>
<context>
    <name>Statistics</name>
    <message>
        <source>%1 Mb of the data received in this accounting period were taken from credits.</source>
        <translation>%1 MB der in diesem Abrechnungszeitraum empfangenen Daten wurden aus Guthaben genommen.</translation>
    </message>
    <message>
        <source>Nothing of the data received in this accounting period was taken from credits.</source>
        <translation>Von den in diesem Abrechnungszeitraum empfangenen Daten wurde nichts aus Guthaben genommen.</translation>
    </message>
    <message>
        <source>%1 hr of the time on-line in this accounting period were taken from credits.</source>
        <translation>%1 Std. der Onlinezeit in diesem Abrechnungszeitraum wurden aus Guthaben genommen.</translation>
    </message>
    <message>
        <source>Nothing of the time on-line in this accounting period was taken from credits.</source>
        <translation>Von der Onlinezeit in diesem Abrechnungszeitraum wurde nichts aus Guthaben genommen.</translation>
    </message>
    <message>
        <source>This user has no limit within an accounting period.</source>
        <translation>Dieser Benutzer hat kein Limit im Abrechnungszeitraum.</translation>
    </message>
    <message>
        <source>This group has no limit within an accounting period.</source>
        <translation>Diese Gruppe hat kein Limit im Abrechnungszeitraum.</translation>
    </message>
</context>
<context>
    <name>StatisticsDialog</name>
    <message>
        <source>User statistics</source>
        <translation>Statistik des Benutzers</translation>
    </message>
    <message>
        <source>Group statistics</source>
        <translation>Statistik der Gruppe</translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation>Abrechnungszeitraum</translation>
    </message>
    <message>
        <source>Data received, Mb</source>
        <translation>Empfangene Daten, MB</translation>
    </message>
    <message>
        <source>Data sent, Mb</source>
        <translation>Gesendete Daten, MB</translation>
    </message>
    <message>
        <source>Time On-Line, hr</source>
        <translation>Onlinezeit, Std.</translation>
    </message>
    <message>
        <source>Overall</source>
        <translation>Insgesamt</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Last 30 days</source>
        <translation>Letzte 30 Tage</translation>
    </message>
</context>
<context>
    <name>TariffPage</name>
    <message>
        <source>Current tariff</source>
        <translation>Aktueller Tarif</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen …</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation>Eigenschaften …</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Tariff</source>
        <translation>Tarif</translation>
    </message>
</context>
<context>
    <name>TextEncoding</name>
    <message>
        <source>This is a spreadsheet. Please save it there as CSV, and import that file</source>
        <translation>Das ist eine Tabellenkalkulation. Bitte speichern Sie sie dort als CSV und importieren Sie diese Datei</translation>
    </message>
    <message>
        <source>The file is not whole: it ends within a letter</source>
        <translation>Die Datei ist nicht vollständig: Sie endet mitten in einem Zeichen</translation>
    </message>
    <message>
        <source>This is not a file of text</source>
        <translation>Das ist keine Textdatei</translation>
    </message>
</context>
<context>
    <name>TimeField</name>
    <message>
        <source>Please enter a time, as in %1.</source>
        <translation>Bitte geben Sie eine Uhrzeit ein, wie zum Beispiel %1.</translation>
    </message>
</context>
<context>
    <name>TimePage</name>
    <message>
        <source>Reading the times...</source>
        <translation>Die Zeiten werden gelesen …</translation>
    </message>
    <message>
        <source>The time ranges could not be read.</source>
        <translation>Die Zeitbereiche konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Time ranges</source>
        <translation>Zeitbereiche</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Since time</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>Until time</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Grant access</source>
        <translation>Zugang erlauben</translation>
    </message>
    <message>
        <source>Deny access</source>
        <translation>Zugang verweigern</translation>
    </message>
    <message>
        <source>Specify time ranges please</source>
        <translation>Bitte geben Sie Zeitbereiche an</translation>
    </message>
    <message>
        <source>Add range</source>
        <translation>Bereich hinzufügen</translation>
    </message>
    <message>
        <source>Delete range</source>
        <translation>Bereich löschen</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Select the item to delete</source>
        <translation>Wählen Sie den Eintrag, der gelöscht werden soll</translation>
    </message>
</context>
<context>
    <name>TimeRangeDialog</name>
    <message>
        <source>Add time range</source>
        <translation>Zeitbereich hinzufügen</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Specify time range</source>
        <translation>Zeitbereich angeben</translation>
    </message>
    <message>
        <source>Since time</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>Until time</source>
        <translation>Bis</translation>
    </message>
</context>
<context>
    <name>TimeRanges</name>
    <message>
        <source>Monday</source>
        <translation>Montag</translation>
    </message>
    <message>
        <source>Tuesday</source>
        <translation>Dienstag</translation>
    </message>
    <message>
        <source>Wednesday</source>
        <translation>Mittwoch</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>Donnerstag</translation>
    </message>
    <message>
        <source>Friday</source>
        <translation>Freitag</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>Samstag</translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation>Sonntag</translation>
    </message>
    <message>
        <source>Wrong time specification. Please re-enter</source>
        <translation>Falsche Zeitangabe. Bitte geben Sie sie neu ein</translation>
    </message>
    <message>
        <source>Please select day</source>
        <translation>Bitte wählen Sie einen Tag</translation>
    </message>
</context>
<context>
    <name>TrafficChart</name>
    <message>
        <source>Traffic of the last 30 days</source>
        <translation>Datenverkehr der letzten 30 Tage</translation>
    </message>
    <message>
        <source>%1: received %2 Mb, sent %3 Mb</source>
        <translation>%1: empfangen %2 MB, gesendet %3 MB</translation>
    </message>
    <message>
        <source>No traffic in the last 30 days</source>
        <translation>Kein Datenverkehr in den letzten 30 Tagen</translation>
    </message>
    <message>
        <source>Received, Mb</source>
        <translation>Empfangen, MB</translation>
    </message>
    <message>
        <source>Sent, Mb</source>
        <translation>Gesendet, MB</translation>
    </message>
    <message>
        <source>Point at a day, or choose one with the arrow keys</source>
        <translation>Zeigen Sie auf einen Tag, oder wählen Sie einen mit den Pfeiltasten</translation>
    </message>
    <message>
        <source>No traffic in the last 30 days.</source>
        <translation>Kein Datenverkehr in den letzten 30 Tagen.</translation>
    </message>
    <message>
        <source>Received %1 Mb, sent %2 Mb. Most on one day: received %3 Mb, sent %4 Mb.</source>
        <translation>Empfangen %1 MB, gesendet %2 MB. Meiste an einem Tag: empfangen %3 MB, gesendet %4 MB.</translation>
    </message>
</context>
<context>
    <name>UnmonitoredDialog</name>
    <message>
        <source>Monitor user</source>
        <translation>Benutzer überwachen</translation>
    </message>
    <message>
        <source>Unmonitored users</source>
        <translation>Nicht überwachte Benutzer</translation>
    </message>
    <message>
        <source>The activity of these users is not counted. Select those to bring back under monitoring; all their old records are still there.</source>
        <translation>Was diese Benutzer tun, wird nicht gezählt. Wählen Sie die aus, die wieder überwacht werden sollen; alle ihre alten Datensätze sind noch vorhanden.</translation>
    </message>
    <message>
        <source>Bringing the users back under monitoring...</source>
        <translation>Die Benutzer werden wieder unter Überwachung gestellt …</translation>
    </message>
    <message>
        <source>Reading the unmonitored users...</source>
        <translation>Die nicht überwachten Benutzer werden gelesen …</translation>
    </message>
    <message>
        <source>The unmonitored users could not be read.</source>
        <translation>Die nicht überwachten Benutzer konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>All users are monitored.</source>
        <translation>Alle Benutzer werden überwacht.</translation>
    </message>
</context>
<context>
    <name>UpgradeDialog</name>
    <message>
        <source>Upgrade of the database</source>
        <translation>Datenbank aktualisieren</translation>
    </message>
    <message>
        <source>The tables of the database &quot;%1&quot; have version %2, and this program is made for version %3. The upgrade keeps what they hold.</source>
        <translation>Die Tabellen der Datenbank „%1“ haben die Version %2, und dieses Programm ist für die Version %3 gemacht. Die Aktualisierung behält, was darin steht.</translation>
    </message>
    <message>
        <source>What the upgrade does</source>
        <translation>Was die Aktualisierung tut</translation>
    </message>
    <message>
        <source>Nobody else may be connected meanwhile: stop the accounting service, and close other consoles and reports.</source>
        <translation>Niemand sonst darf dabei verbunden sein: Halten Sie den Abrechnungsdienst an, und schließen Sie andere Konsolen und Berichte.</translation>
    </message>
    <message>
        <source>&amp;Make a backup before, in this file:</source>
        <translation>&amp;Vorher eine Sicherung anlegen, in dieser Datei:</translation>
    </message>
    <message>
        <source>File of the backup</source>
        <translation>Datei der Sicherung</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>&amp;Durchsuchen …</translation>
    </message>
    <message>
        <source>The upgrade is at work</source>
        <translation>Die Aktualisierung läuft</translation>
    </message>
    <message>
        <source>&amp;Upgrade</source>
        <translation>&amp;Aktualisieren</translation>
    </message>
    <message>
        <source>&amp;Not now</source>
        <translation>&amp;Nicht jetzt</translation>
    </message>
    <message>
        <source>What the upgrade would do cannot be told.</source>
        <translation>Was die Aktualisierung tun würde, lässt sich nicht feststellen.</translation>
    </message>
    <message>
        <source>Please enter the file of the backup</source>
        <translation>Bitte geben Sie die Datei der Sicherung ein</translation>
    </message>
    <message>
        <source>The tables are up to date.</source>
        <translation>Die Tabellen sind auf dem neuesten Stand.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>The upgrade was not made, and nothing is lost. Somebody who may alter the tables can make it with: tollbrook-db upgrade --dsn %1</source>
        <translation>Die Aktualisierung ist nicht erfolgt, und nichts ist verloren. Wer die Tabellen ändern darf, kann sie so vornehmen: tollbrook-db upgrade --dsn %1</translation>
    </message>
</context>
<context>
    <name>UserBlocking</name>
    <message>
        <source>Block</source>
        <translation>Sperren</translation>
    </message>
    <message>
        <source>Unblock</source>
        <translation>Entsperren</translation>
    </message>
    <message>
        <source>Storing the users...</source>
        <translation>Die Benutzer werden gespeichert …</translation>
    </message>
    <message>
        <source>The block of these users was changed meanwhile and stays: %1</source>
        <translation>Die Sperre dieser Benutzer wurde inzwischen geändert und bleibt: %1</translation>
    </message>
</context>
<context>
    <name>UserCells</name>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>global</source>
        <translation>allgemein</translation>
    </message>
</context>
<context>
    <name>UserColumns</name>
    <message>
        <source>Username</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Workstation</source>
        <translation>Arbeitsplatz</translation>
    </message>
    <message>
        <source>Full name</source>
        <translation>Vollständiger Name</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Zugang</translation>
    </message>
    <message>
        <source>MAC Address</source>
        <translation>MAC-Adresse</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Used</source>
        <translation>Verbraucht</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Übrig</translation>
    </message>
</context>
<context>
    <name>UserCommands</name>
    <message>
        <source>This will change 1 user. Continue?</source>
        <translation>1 Benutzer wird geändert. Fortfahren?</translation>
    </message>
    <message>
        <source>This will change %1 users. Continue?</source>
        <translation>%1 Benutzer werden geändert. Fortfahren?</translation>
    </message>
    <message>
        <source>Move %1 to the group %2?</source>
        <translation>%1 in die Gruppe %2 verschieben?</translation>
    </message>
    <message>
        <source>This will move %1 users to the group %2. Continue?</source>
        <translation>%1 Benutzer werden in die Gruppe %2 verschoben. Fortfahren?</translation>
    </message>
    <message>
        <source>Changing the group...</source>
        <translation>Die Gruppe wird geändert …</translation>
    </message>
    <message>
        <source>Deleting users...</source>
        <translation>Benutzer werden gelöscht …</translation>
    </message>
    <message>
        <source>This will move this user to the unmonitored list. Continue?</source>
        <translation>Damit wird dieser Benutzer in die Liste der nicht überwachten verschoben. Fortfahren?</translation>
    </message>
    <message>
        <source>This will move these users to the unmonitored list. Continue?</source>
        <translation>Damit werden diese Benutzer in die Liste der nicht überwachten verschoben. Fortfahren?</translation>
    </message>
    <message>
        <source>Moving users to the unmonitored list...</source>
        <translation>Benutzer werden in die Liste der nicht überwachten verschoben …</translation>
    </message>
    <message>
        <source>This does not work on all users that match. Select rows of the list.</source>
        <translation>Das geht nicht mit allen passenden Benutzern. Wählen Sie Zeilen der Liste.</translation>
    </message>
</context>
<context>
    <name>UserExport</name>
    <message>
        <source>Users</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>all users</source>
        <translation>alle Benutzer</translation>
    </message>
    <message>
        <source>users</source>
        <translation>Benutzer</translation>
    </message>
</context>
<context>
    <name>UserFilter</name>
    <message>
        <source>There is no mode &quot;%1&quot;. The modes are: %2.</source>
        <translation>Es gibt keinen Modus „%1“. Die Modi sind: %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no range of addresses such as 10.1.2.0/24 or 10.1.2.5-10.1.2.9.</source>
        <translation>„%1“ ist kein Bereich von Adressen wie 10.1.2.0/24 oder 10.1.2.5-10.1.2.9.</translation>
    </message>
    <message>
        <source>Nothing stands between the quotes.</source>
        <translation>Zwischen den Anführungszeichen steht nichts.</translation>
    </message>
    <message>
        <source>A name is missing behind &quot;%1&quot;.</source>
        <translation>Hinter „%1“ fehlt ein Name.</translation>
    </message>
    <message>
        <source>A word has at most %1 characters.</source>
        <translation>Ein Wort hat höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>At most %1 words can be looked for at once.</source>
        <translation>Höchstens %1 Wörter können auf einmal gesucht werden.</translation>
    </message>
</context>
<context>
    <name>UserPlan</name>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Full name</source>
        <translation>Vollständiger Name</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>MAC Address</source>
        <translation>MAC-Adresse</translation>
    </message>
</context>
<context>
    <name>ViewerBar</name>
    <message>
        <source>Print...</source>
        <translation>Drucken …</translation>
    </message>
    <message>
        <source>Save as...</source>
        <translation>Speichern unter …</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>Erste Seite</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Vorige Seite</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Letzte Seite</translation>
    </message>
    <message>
        <source>Fit width</source>
        <translation>Seitenbreite</translation>
    </message>
    <message>
        <source> &amp;Zoom: </source>
        <translation> &amp;Zoom: </translation>
    </message>
    <message>
        <source>Find text</source>
        <translation>Text suchen</translation>
    </message>
    <message>
        <source>Find next</source>
        <translation>Weitersuchen</translation>
    </message>
    <message>
        <source> of %1 </source>
        <translation> von %1 </translation>
    </message>
    <message>
        <source>Page number</source>
        <translation>Seitennummer</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Page setup...</source>
        <translation>Seite einrichten …</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>The rows as a table that can be sorted and filtered (%1)</source>
        <translation>Die Zeilen als Tabelle, die sich sortieren und filtern lässt (%1)</translation>
    </message>
</context>
<context>
    <name>WaitDialog</name>
    <message>
        <source>Please wait</source>
        <translation>Bitte warten</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation>Wird abgebrochen …</translation>
    </message>
</context>
<context>
    <name>WhyAccess</name>
    <message>
        <source>Why access is as it is could not be read.</source>
        <translation>Warum der Zugang ist, wie er ist, konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This user has been deleted meanwhile.</source>
        <translation>Dieser Benutzer wurde inzwischen gelöscht.</translation>
    </message>
</context>
<context>
    <name>WhyLines</name>
    <message>
        <source>Why, and until when</source>
        <translation>Warum, und bis wann</translation>
    </message>
</context>
<context>
    <name>WhyPanel</name>
    <message>
        <source>&amp;Block</source>
        <translation>&amp;Sperren</translation>
    </message>
    <message>
        <source>U&amp;nblock</source>
        <translation>&amp;Entsperren</translation>
    </message>
    <message>
        <source>Why, and until when</source>
        <translation>Warum, und bis wann</translation>
    </message>
    <message>
        <source>Blocks the chosen users at once (Ctrl+B)</source>
        <translation>Sperrt die ausgewählten Benutzer sofort (Strg+B)</translation>
    </message>
    <message>
        <source>Lifts the administrator&apos;s block of the chosen users (Ctrl+Shift+B)</source>
        <translation>Hebt die Sperre des Administrators für die ausgewählten Benutzer auf (Strg+Umschalt+B)</translation>
    </message>
    <message>
        <source>%1, and %2 more chosen</source>
        <translation>%1 und %2 weitere ausgewählt</translation>
    </message>
    <message>
        <source>Choose a user in the list.</source>
        <translation>Wählen Sie einen Benutzer in der Liste.</translation>
    </message>
</context>
<context>
    <name>WhySide</name>
    <message>
        <source>&amp;Why, and until when</source>
        <translation>&amp;Warum, und bis wann</translation>
    </message>
    <message>
        <source>Show why the chosen user may send or not, and until when</source>
        <translation>Zeigt, warum der ausgewählte Benutzer senden darf oder nicht, und bis wann</translation>
    </message>
    <message>
        <source>Block</source>
        <translation>Sperren</translation>
    </message>
    <message>
        <source>Unblock</source>
        <translation>Entsperren</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>WizardProtocols</name>
    <message>
        <source>What was removed of %1 stays.</source>
        <translation>Was von %1 entfernt wurde, bleibt.</translation>
    </message>
    <message>
        <source>%1 was removed by somebody else meanwhile and does not come back.</source>
        <translation>%1 wurde inzwischen von jemand anderem entfernt und kommt nicht zurück.</translation>
    </message>
</context>
</TS>
