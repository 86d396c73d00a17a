<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About Tollbrook Administrator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;b&gt;Tollbrook Administrator&lt;/b&gt; %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The administration console of Tollbrook Network: users, groups, limits, credits and blocks of the accounting service.

Licensed under the Apache License, version 2.0.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AccessMode</name>
    <message>
        <source>No control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corporate, traffic control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Provider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corporate, time control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corporate, traffic and time control</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AccessTypeBox</name>
    <message>
        <source>Access type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Corporate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Provider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time control </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AccessWords</name>
    <message>
        <source>This user is not monitored: nothing is counted, limited or blocked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Marked as blocked for reason 4, which lets the user through.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing stands against access.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>d MMMM</source>
        <comment>a day of this year</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>d MMMM yyyy</source>
        <comment>a day of another year</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>midnight</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 today</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 on %2</source>
        <comment>a time and a day</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blocked for a reason without a meaning (%1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blocked by the administrator.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blocked by the administrator since %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>a day and a time</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The block stays until the service lifts it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blocked by the accounting service for traffic, though by now nothing that limits it is used up.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blocked by the accounting service for time, though by now nothing that limits it is used up.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blocked by the accounting service, which did not say why.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 today</source>
        <comment>an amount used</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 since %2</source>
        <comment>an amount used</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The period ends today.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The period ends on %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A credit has expired: its last day was %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 credits have expired: the last one&apos;s last day was %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Of that, credits give %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The traffic limit of %1 is used up (%2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Of the traffic limit of %1, %3 is left (used: %2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The traffic limit of %1 that the group shares is used up (%2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Of the traffic limit of %1 that the group shares, %3 is left (used: %2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The time limit of %1 is used up (%2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Of the time limit of %1, %3 is left (used: %2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 h</source>
        <comment>hours</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> and </source>
        <comment>between two amounts</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No pre-paid credit of the group is left.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No pre-paid credit is left.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The group has a pre-paid credit without a bound.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is a pre-paid credit without a bound.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Of the group&apos;s pre-paid credit, %1 is left.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Of the pre-paid credit, %1 is left.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its last day is %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The allowed time lasts the whole week.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No time of the week is an allowed one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Within the allowed time, until %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outside the allowed time until %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The next allowed time lasts until %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These are the times of the group.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time ranges that cannot be read: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user is logged in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user is not logged in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user must log in. Whether that was done, only the service knows.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No login belongs to this user.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user&apos;s group is blocked by the administrator.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user&apos;s group is blocked by the accounting service.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only these protocols are allowed to the group: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These protocols are denied to the group: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only these protocols are allowed: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These protocols are denied: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monitor...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unblock group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unblock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Raise limit...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add credit...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Times...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logins...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Protocols...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access is allowed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access is allowed after login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access is denied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access is blocked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outside the allowed time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The users list shows &quot;%1&quot; instead: it goes by the marks in the user&apos;s row alone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The words above go by the user&apos;s block alone. With all that counts: %1.</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open credits only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Period:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add credit...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C&amp;lose credit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select credit to close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot close Expired or New account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the item to delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot delete Expired or Active account</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No credits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Balance, Mb:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the item to delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot delete Expired or Active account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the item to close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot close Expired or New account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You are about to close this credit. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Accounts</name>
    <message>
        <source>Reading the account...</source>
        <translation type="unfinished">Das Konto wird gelesen …</translation>
    </message>
    <message>
        <source>The account could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the statistics...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The statistics could not be read.</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the users were blocked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No user was unblocked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the users were unblocked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the change was undone.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AdapterChooser</name>
    <message>
        <source>Select new adapter from the list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current adapter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bind to IP address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select new adapter from the list:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You are about to bind Tollbrook service to another network card. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AdapterDialog</name>
    <message>
        <source>Select network card Tollbrook will work with</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AdapterPage</name>
    <message>
        <source>Error!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adapter selection</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Adapters</name>
    <message>
        <source>Ethernet adapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wireless adapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Point-to-point adapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Virtual adapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network adapter</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AddMemberDialog</name>
    <message>
        <source>Add user to the group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Users of other groups:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AddRangeDialog</name>
    <message>
        <source>IP address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add IP addresses range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subnet mask:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AddressHolder</name>
    <message>
        <source>This IP address is bind to another user. This user will be removed. Proceed?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This MAC address is bind to another user. This user will be removed. Proceed?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AddressRanges</name>
    <message>
        <source>You entered incorrect IP addresses and/or subnet mask</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have already defined this range of IP addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can not define more than %1 ranges of IP addresses</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AuthenticationPage</name>
    <message>
        <source>Require authentication from all new users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Allow authentication for users not logged to domain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Allow authentication from non-host computers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Authentication server port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Authentication</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BillingCreditDialog</name>
    <message>
        <source>&amp;No expiry date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Unlimited</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Traffic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Money</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expiry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Expiry date:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BindPage</name>
    <message>
        <source>Identify users with:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Windows username (requires Username Agent installed)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bind</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BlockBox</name>
    <message>
        <source>Access is denied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access is allowed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BlockCommands</name>
    <message>
        <source>The administrator has blocked these users already. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The administrator has not blocked any of these users. A block for a limit is lifted by a higher limit or a credit. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The block of these users was changed meanwhile. Nothing was undone.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BlockStep</name>
    <message>
        <source>Access is allowed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access is denied by the administrator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access is denied by the service</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BrowseUserDialog</name>
    <message>
        <source>Browse for user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Groups and users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select username, not the groupname</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the user&apos;s logins...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Whether this user has a login could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This user is no longer in the database</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set new rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Used currency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorGenOptBind</name>
    <message>
        <source>Enable IP-MAC addresses correspondence control</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorGenOptMisc</name>
    <message>
        <source>Require domain logon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Database update period, sec:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Client deinstall</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deinstall password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retype password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You entered different passwords. Please re-enter</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorGenOptNetwork</name>
    <message>
        <source>Local IP addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Excluded IP addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter IP address to exclude:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete address</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorGroupPAccess</name>
    <message>
        <source>Block group imminently</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Provider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No control</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Members</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add user to the group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A group&apos;s page holds at most %1 users. The others were not added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move user out of this group?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorUserPAccess</name>
    <message>
        <source>Block user imminently</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Require authentication</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please choose one or both corporate type options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tollbrook</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorUserPPage</name>
    <message>
        <source>(Changed)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change IP address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change MAC address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP Address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MAC Address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Username:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Login:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Workstation:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User kind:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Guest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Standard</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorView</name>
    <message>
        <source>Changing the group...</source>
        <translation>Die Gruppe wird geändert …</translation>
    </message>
    <message>
        <source>Deleting users...</source>
        <translation>Benutzer werden gelöscht …</translation>
    </message>
    <message>
        <source>Moving users to the unmonitored list...</source>
        <translation>Benutzer werden in die Liste der nicht überwachten verschoben …</translation>
    </message>
    <message>
        <source>Users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refill current user account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will delete this user and all corresponding information. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will delete these users and all corresponding information. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will move this user to the unmonitored list. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will move these users to the unmonitored list. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set mode/limits...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do not monitor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refill current group account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will delete the selected group. Contunue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You cannot delete Everybody group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can not rename Everybody group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter new name for the group:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg1</name>
    <message>
        <source>Setup Wizard - Welcome</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Welcome to Tollbrook setup wizard!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It asks for the local networks, the proxies and gateways in them, the protocols to monitor and how users are told apart. Nothing is written before you press Finish.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg2</name>
    <message>
        <source>Local ranges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setup Wizard - Local IP Addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Networks of this machine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add %1 / %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg3</name>
    <message>
        <source>Setup Wizard - Proxy and gateway</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>I use proxy server or gateway</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Proxy or gateway addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter IP address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg4</name>
    <message>
        <source>Protocol titles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter protocol title, e.g. FTP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setup Wizard - Monitored protocols</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg5</name>
    <message>
        <source>Ports for</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter TCP/IP port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setup Wizard - TCP/IP ports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Protocol titles</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg6</name>
    <message>
        <source>Setup Wizard - User binds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Identify users with:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NT/2000 username (requires Username Agent installed)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CSetupWizardDlg7</name>
    <message>
        <source>Setup Wizard - Finish</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The setup is complete. Press Finish to save it, then you should restart the service so that new parameters are enforced.</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The group&apos;s name could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select one of the groups:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter the name of the group:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You are going to remove the group. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can not delete &apos;Everybody&apos; group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select group to change, please</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The groups could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the groups...</source>
        <translation type="unfinished">Die Gruppen werden gelesen …</translation>
    </message>
</context>
<context>
    <name>ChangeIpDialog</name>
    <message>
        <source>IP address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change IP Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter full IP address</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChangeMacDialog</name>
    <message>
        <source>Change MAC address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MAC address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MAC address can contain only 12 symbols. Please re-enter the address</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Check</name>
    <message>
        <source>The data source &quot;%1&quot; cannot be opened: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SELECT COUNT(*) FROM (%1) wrong</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A check of &quot;%1&quot; failed: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConfigStore</name>
    <message>
        <source>cannot be written: it does not take the value &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Controls</name>
    <message>
        <source>This could not be read. What is shown may be incomplete or out of date.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CreateLoginDialog</name>
    <message>
        <source>Login properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Allow access to personal statistics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is a guest user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Login name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re-type password:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bind this login to existing user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bound user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse for user...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Limit the workstation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No limit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>By IP address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>By MAC address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>12 characters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the users...</source>
        <translation type="unfinished">Die Benutzer werden gelesen …</translation>
    </message>
    <message>
        <source>The users could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This user already has login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This user already has login. Please select another user</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Credit</name>
    <message>
        <source>The access type of this user has been changed to &quot;%1&quot; meanwhile. Nothing was changed. Please open the window again to go on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The access type of this group has been changed to &quot;%1&quot; meanwhile. Nothing was changed. Please open the window again to go on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This user is no longer in the database. Nothing was changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This group is no longer in the database. Nothing was changed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CreditColumns</name>
    <message>
        <source>N</source>
        <comment>the number of a row</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date/Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <comment>of the day</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Credit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Used</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Used Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Used cash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exp.date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Used, Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expiry date</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CreditDialog</name>
    <message>
        <source>Add credit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Credit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Amount:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CreditEntry</name>
    <message>
        <source>Please enter an amount above 0 and up to 1000000000</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The currency has no valid rate. Please correct it on the Tariff page of the options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The amount is too small at the currency&apos;s rate. Please enter a larger one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The expiry day has already passed. Please choose another day</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CreditList</name>
    <message>
        <source>Unlim</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlimited</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expired</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CreditTable</name>
    <message>
        <source>Credits</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Currency</name>
    <message>
        <source>units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mbytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hr</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CurrencyDialog</name>
    <message>
        <source>Add currency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Symbol (e.g. USD) :</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate (currency/units)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CurrencyEditor</name>
    <message>
        <source>Currencies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter the rate please</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>units per Mb</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CurrencySettings</name>
    <message>
        <source>Enter the currency symbol please</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter the currency rate please</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter the currency rate as a number above 0 with at most %1 decimals please</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can not delete base currency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can not edit base currency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select currency to edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select currency to set</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DefaultProfilePage</name>
    <message>
        <source>Block imminently</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access control type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic limit. Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time limit, hr</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Default user profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select one of the corporate type access options</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DirectConnection</name>
    <message>
        <source>The database engine &quot;%1&quot; is not supported.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EditableList</name>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Engine</name>
    <message>
        <source>data source &quot;%1&quot;: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ExclusionEditor</name>
    <message>
        <source>IP Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Exclusions</name>
    <message>
        <source>IP-Address %1 is already in the active database. You can not exclude IP-addresses that are in the database. Unless you remove this user Tollbrook will not be able to process excluded address. Remove it now?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter IP address please</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This IP address has been already excluded</source>
        <translation type="unfinished"></translation>
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
</context>
<context>
    <name>FailuresDialog</name>
    <message>
        <source>Failed statements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed statements, newest first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Statement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SQLSTATE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed since the program started: %1. Listed, newest first: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FilterCompleter</name>
    <message>
        <source>Words of a filter</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <source>Found users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Any part of a name, workstation, description, address, group or login; also group:NAME, mode:NAME, blocked, over, 10.1.2.0/24</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved filters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save what is typed under a name, or choose what was saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished">%1 von %2</translation>
    </message>
    <message>
        <source>The users could not be searched.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save filter...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter a name for the filter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The filters could not be kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find user:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find the first user whose first column begins with this text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter search criteria please</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No user found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tollbrook Administrator</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FrameMenus</name>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Purge database...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove accumulated records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Export list...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save all users that match as a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit the program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;User</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display user or group properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Properties...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Account...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change &amp;group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do not &amp;monitor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move to the unmonitored list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete user or the group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;fresh </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read both lists anew</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sort by</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Usernames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Workstations</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full names</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No auto refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each minute</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each 3 minutes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each 5 minutes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each 10 minutes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom period...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Configure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Unmonitored</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bring users back under monitoring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Login manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logins for user authentication</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Network adapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select network card Tollbrook will work with</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Global options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display global options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose and show a report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reports...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reports...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help topics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open the user guide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setup &amp;wizard...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Starts the setup wizard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About Tollbrook Administrator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commands</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Takes it back for the users that it changed (Ctrl+Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total users: 12</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A double click controls the service</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Without a connection, a double click reconnects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Database statements that failed since the program started</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active users: %1 </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active users: ? </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The accounting service runs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The accounting service does not run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected to the service</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected to the service</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed statements: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>Database update period, sec</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter an integer.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GlobalOptions</name>
    <message>
        <source>Options</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GroupGone</name>
    <message>
        <source>The group &quot;Everybody&quot;, into which users would be moved, has been deleted. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The chosen group has been deleted meanwhile. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This group has been deleted meanwhile. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GroupListModel</name>
    <message>
        <source>Group Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GroupName</name>
    <message>
        <source>Please enter the name of the group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The group with this name already exists!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GroupPlan</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group of %1</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expired</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Closed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mbytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Money</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlim</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hr</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Today</source>
        <translation type="unfinished">Heute</translation>
    </message>
    <message>
        <source>Last week</source>
        <translation type="unfinished">Letzte Woche</translation>
    </message>
    <message>
        <source>Last month</source>
        <translation type="unfinished">Letzter Monat</translation>
    </message>
</context>
<context>
    <name>IdentModeBox</name>
    <message>
        <source>Each workstation needs an address that stays the same.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The workstations must not be behind a further router.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each user needs a login, and each workstation the agent.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP-address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MAC-address</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>IpAddressField</name>
    <message>
        <source>Please enter an integer between 0 and 255.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, part %2 of 4</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;top&quot; needs rows = &quot;summed&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there must be 1 to %1 [[column]] tables</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a column&apos;s &quot;name&quot; is missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name, or a second one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>only numbers have a total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a computed column is an amount or an integer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;words&quot; are two: for 0 and for 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a column is computed from numbers that are read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;group&quot; needs rows = &quot;each&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rows are not grouped by numbers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no column is left to be printed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rows of each are ordered by columns that are read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;chart&quot; is not a table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a chart draws one or two values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a chart draws read or counted columns with a total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;day&quot; is not a column of days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;label&quot; is not a column of texts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no column &quot;%2&quot;; the nearest is &quot;%3&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; names a column that is not there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the layout file cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no such layout file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is larger than a layout can be (%1 KiB)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LayoutTable</name>
    <message>
        <source>unknown key &quot;%1&quot;; the nearest known one is &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither true nor false</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a whole number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number from %2 to %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a list of texts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds something that is not a text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be &quot;%2&quot;; the nearest known is &quot;%3&quot;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LimitCreditDialog</name>
    <message>
        <source>&amp;Traffic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>T&amp;ime</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LimitDialog</name>
    <message>
        <source>Limit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the limit as a whole number</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change traffic limit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use global settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change time limit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fixed limits within accounting period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic limit, Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time limit, Hr</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic,</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Limits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This user has been deleted meanwhile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This group has been deleted meanwhile.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ListCommands</name>
    <message>
        <source>The new group cannot be found by its name. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ListExport</name>
    <message>
        <source>Spreadsheet (*.xlsx)</source>
        <translation type="unfinished">Tabelle (*.xlsx)</translation>
    </message>
    <message>
        <source>Text with commas (*.csv)</source>
        <translation type="unfinished">Text mit Kommas (*.csv)</translation>
    </message>
    <message>
        <source>Export list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting the list...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 users were saved as %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The list was not exported.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoginManager</name>
    <message>
        <source>The changes of these logins are not saved. Drop them?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Login manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Groups</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logins</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bind to user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bind Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All groups</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Guest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>With no bind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove this login from the database?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Storing the logins...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the logins...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The logins could not be read.</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoginTable</name>
    <message>
        <source>Passwords are not identical. Please re-enter passwords</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You entered incorrect IP address. Please re-enter address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have entered incorrect MAC address. Please re-enter the address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please bind the login to existing user with &apos;Browse&apos; button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password is too long. It can hold at most 256 characters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter login name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This login name already exists! Please enter another login name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no more space to enter new login record</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Users changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These %1 users will be changed:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fixed limits within accounting period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic limit, Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time limit, Hr</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select one of the corporate type access options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please choose an accounting period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the limit as a whole number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some of these users have been deleted meanwhile. %1 of %2 are changed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MessageBoxPrompt</name>
    <message>
        <source>Tollbrook Administrator</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monitor basic Internet protocols</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monitor specified protocols only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monitor all protocols but specified</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MonitoredDialog</name>
    <message>
        <source>Monitored protocols</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NamesLine</name>
    <message>
        <source>(no name)</source>
        <translation type="unfinished">(ohne Namen)</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation type="unfinished">%1 und %2 weitere</translation>
    </message>
</context>
<context>
    <name>NetworkPage</name>
    <message>
        <source>Network</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NoticeQueue</name>
    <message>
        <source>No answer within %1 seconds</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NumberField</name>
    <message>
        <source>Please enter an integer between %1 and %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Please enter a number between %1 and %2, with at most %n decimals.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Options</name>
    <message>
        <source>Local IP addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Excluded IP addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter IP address to exclude:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prevent users from changing IP address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Options</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OwnerNotice</name>
    <message>
        <source>User: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group: </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PeriodDialog</name>
    <message>
        <source>Day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accounting period:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please choose an accounting period</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port number:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PresentUsers</name>
    <message>
        <source>This user has been deleted meanwhile. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These users have been deleted meanwhile. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PrintPages</name>
    <message>
        <source>No printer is installed. The report can be saved as PDF.</source>
        <translation>Es ist kein Drucker eingerichtet. Der Bericht kann als PDF gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>ProgressWindow</name>
    <message>
        <source>Progress</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Properties</name>
    <message>
        <source>Reading the user...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This user has been deleted meanwhile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The group could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This group has been deleted meanwhile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Storing the user...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group&apos;s properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Storing the group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the users...</source>
        <translation type="unfinished">Die Benutzer werden gelesen …</translation>
    </message>
    <message>
        <source>The users could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These users have been deleted meanwhile.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProtocolList</name>
    <message>
        <source>Protocol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add protocol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Protocol title:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProtocolPage</name>
    <message>
        <source>Allow protocols</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disallow protocols</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Protocols</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the protocol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take the protocol back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Available</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This protocol is already in the list!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This port is already in list!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter a port number between 1 and %1 please</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can not add more than %1 protocols</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can not add more than %1 ports to a protocol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have not selected any protocol. Tollbrook will not track any traffic with this setup. Would you like to continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProtocolsPage</name>
    <message>
        <source>Available protocols</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add protocol...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove protocol</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ports for</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add port...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setup monitored protocols</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Protocols</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PurgeDialog</name>
    <message>
        <source>Users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Limits and credits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Visits to sites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Purge database</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You may purge all information in  your   database   or  select particular time  period  on  the right of this window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Purge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished">Hilfe</translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished">Schließen</translation>
    </message>
    <message>
        <source>The records of the days that you keep stay in the database; all older and newer ones are removed for good. Visits to sites are removed only together with all other information.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Information to remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Purge all information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete all users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Purge for the selected period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rows by table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rows to remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rows removed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress of the purge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The rows are counted when you press &quot;Purge&quot;, before anything goes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will erase the particular information from your database. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Counting the rows to remove...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The rows to remove could not be counted. Nothing was removed so far.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not known</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removing from: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not removed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether this was removed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not tried after you cancelled: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Purge complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The purge is not complete. What is not named here was removed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PurgePeriod</name>
    <message>
        <source>No record is kept, and no user.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No record is kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kept are the days from %1 to %2. All records before and after go.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kept are the days from %1 to today, %2. All records before go.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The period that is kept begins on %1, which is after today. All records up to today would go. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PurgePeriodBox</name>
    <message>
        <source>from %1, after today</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>from %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save data for period of time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Today</source>
        <translation type="unfinished">Heute</translation>
    </message>
    <message>
        <source>Last week</source>
        <translation type="unfinished">Letzte Woche</translation>
    </message>
    <message>
        <source>Last month</source>
        <translation type="unfinished">Letzter Monat</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Since:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Until:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You entered incorrect time period. Please re-enter one of the dates</source>
        <translation type="unfinished">Sie haben einen falschen Zeitraum eingegeben. Bitte geben Sie eines der Daten neu ein</translation>
    </message>
</context>
<context>
    <name>QueryCheck</name>
    <message>
        <source>a quoted text has no end</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a quoted text holds a back-slash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a report only reads, but its query says &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the function &quot;%1&quot; is not one that a report&apos;s query may use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the sign %1 is not one that a report&apos;s query may use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a query holds no comments; write them outside it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the query is empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a report&apos;s query begins with SELECT, not with &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the query holds more than one statement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a parenthesis is closed that was not opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a parenthesis is not closed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RangeEditor</name>
    <message>
        <source>Net address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select an item to delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RateDialog</name>
    <message>
        <source>Rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>units per Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the rate as a number from 0 to 1000000000</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter refresh period, min:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportCatalogue</name>
    <message>
        <source>Traffic (Summary) </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report shows volume of data downloaded and uploaded by the users. You can choose the particular user(s) to make report on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top 10 Users (Traffic)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report presents in graphical form Top 10 users by amount of data downloaded and uploaded. You can choose the particular user(s) to make the report on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic (Detailed) </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report presents user&apos;s Internet-activity on a daily basis: MBytes downloaded and uploaded. You can set period of time to make report on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic (Chart)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report presents user&apos;s Internet-activity in chart form (traffic). You can easily see peaks of user activity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Groups Traffic (Summary)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report shows volume of data received and sent by groups of users. You can choose the particular group(s) to make report on </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account Balance (Traffic)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report shows users&apos; accounts (in traffic): usage and updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time (Summary)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report shows summary by users and the time they spent in the Internet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top 10 Users (Time)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report presents in graphical form Top 10 users by the time they spent in the Internet. You can choose the particular user(s) to make the report on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time (Detail)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report presents user&apos;s Internet-activity on a daily basis: time spent in the Internet. You can set period of time to make report on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detail Time Top10</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report presents user&apos;s Internet-activity in chart form (Internet time). You can easily see peaks of user activity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time (Chart)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report shows users&apos; accounts in Provider mode: usage and updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Provider mode activity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report shows Top 10 users&apos; accounts by usage in Provider mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top 10 Payers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report shows Top 10 users by payment they made for the Internet services</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Site Access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report presents list of sites, accessed during software&apos;s work. Hits shows how many times site has been visited</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top 10 Sites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report presents top 10 accessed sites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User Site Access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This report presents user site access. You can customize this report by user or time period.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportChart</name>
    <message>
        <source>peak %1 on %2</source>
        <translation>Spitze %1 am %2</translation>
    </message>
    <message>
        <source>All values are zero</source>
        <translation>Alle Werte sind null</translation>
    </message>
</context>
<context>
    <name>ReportConnection</name>
    <message>
        <source>The database engine &quot;%1&quot; is not supported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the database gave no reason</source>
        <translation type="unfinished"></translation>
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
</context>
<context>
    <name>ReportHtml</name>
    <message>
        <source>Nothing to report.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database holds no data for this period and filter.</source>
        <translation type="unfinished">Für diesen Zeitraum und Filter enthält die Datenbank keine Daten.</translation>
    </message>
    <message>
        <source>all users and groups</source>
        <translation type="unfinished">alle Benutzer und Gruppen</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>The two letters that stand for the language of these texts</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Period: %1</source>
        <translation type="unfinished">Zeitraum: %1</translation>
    </message>
    <message>
        <source>Filter: %1</source>
        <translation type="unfinished">Filter: %1</translation>
    </message>
    <message>
        <source>Made %1</source>
        <translation type="unfinished">Erstellt %1</translation>
    </message>
    <message>
        <source>Sum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total of all</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportLayouts</name>
    <message>
        <source>Account Balance (Traffic)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Closed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Credit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Credits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detail Time Top10</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expires</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Groups Traffic (Summary)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hits of the top 10 sites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Money used</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payments of the top 10 payers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Provider mode activity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Received</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Site</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Site Access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The 10 accounts with the largest usage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time (Chart)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time (Detail)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time (Summary)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time on-line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time on-line of the top 10 users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time on-line per day of the top 10 users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time used, by the day of the record</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top 10 Payers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top 10 Sites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top 10 Users (Time)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top 10 Users (Traffic)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic (Chart)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic (Detailed)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic (Summary)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic of the top 10 users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic per day of the top 10 users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Used</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User Site Access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>base units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>credits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>groups</source>
        <translation type="unfinished">Gruppen</translation>
    </message>
    <message>
        <source>hours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>users</source>
        <translation type="unfinished">Benutzern</translation>
    </message>
    <message>
        <source>visits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>yes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportOutput</name>
    <message>
        <source>%1: the name must end in .pdf, .csv, .html or .xlsx</source>
        <translation>%1: der Name muss auf .pdf, .csv, .html oder .xlsx enden</translation>
    </message>
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
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportSheet</name>
    <message>
        <source>Total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a row could not be written</source>
        <translation type="unfinished"></translation>
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
        <source>The report was not printed.</source>
        <translation>Der Bericht wurde nicht gedruckt.</translation>
    </message>
    <message>
        <source>Printing was stopped; pages sent before: %1.</source>
        <translation>Der Druck wurde abgebrochen; vorher gesendete Seiten: %1.</translation>
    </message>
    <message>
        <source>The report was sent to the printer.</source>
        <translation>Der Bericht wurde an den Drucker gesendet.</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Spreadsheet (*.xlsx)</source>
        <translation>Tabelle (*.xlsx)</translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress of the report</source>
        <translation type="unfinished"></translation>
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
</context>
<context>
    <name>RowStore</name>
    <message>
        <source>no temporary file in %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the temporary folder %1 cannot be written: %2</source>
        <translation type="unfinished"></translation>
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
    <name>Schema</name>
    <message>
        <source>SELECT 1 FROM %1 WHERE 1 = 0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The statement &quot;%1&quot; failed: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data source &quot;%1&quot; cannot be opened: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database of &quot;%1&quot; already has a table &quot;%2&quot;. Nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ServiceConnection</name>
    <message>
        <source>Could not create instance</source>
        <translation type="unfinished"></translation>
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
    <name>SessionConnection</name>
    <message>
        <source>The database engine &quot;%1&quot; is not supported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database server is a read-only standby, or cut off from its cluster.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no data source of this name.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SessionThread</name>
    <message>
        <source>A call into the database was given up.</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the protocols...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The protocols could not be read. They are not shown, and stay as they are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The protocols could not be read from the database. They stay as they are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Storing the settings...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Settle</name>
    <message>
        <source>Day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: changed meanwhile to &quot;%2&quot;. Overwrite?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Traffic limit, Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time limit, Hr</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Price of traffic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access type</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Statistics</name>
    <message>
        <source>%1 Mb of the data received in this accounting period were taken from credits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing of the data received in this accounting period was taken from credits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 hr of the time on-line in this accounting period were taken from credits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing of the time on-line in this accounting period was taken from credits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This user has no limit within an accounting period.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This group has no limit within an accounting period.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StatisticsDialog</name>
    <message>
        <source>User statistics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group statistics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accounting period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data received, Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data sent, Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time On-Line, hr</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overall</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last 30 days</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TariffPage</name>
    <message>
        <source>Current tariff</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Currency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tariff</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Since time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Until time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grant access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deny access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Specify time ranges please</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the item to delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimeRangeDialog</name>
    <message>
        <source>Add time range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Specify time range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Since time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Until time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wrong time specification. Please re-enter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select day</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimeRanges</name>
    <message>
        <source>Monday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tuesday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wednesday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Friday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TrafficChart</name>
    <message>
        <source>Traffic of the last 30 days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: received %2 Mb, sent %3 Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No traffic in the last 30 days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Received, Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sent, Mb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Point at a day, or choose one with the arrow keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No traffic in the last 30 days.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Received %1 Mb, sent %2 Mb. Most on one day: received %3 Mb, sent %4 Mb.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UnmonitoredDialog</name>
    <message>
        <source>Monitor user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unmonitored users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The activity of these users is not counted. Select those to bring back under monitoring; all their old records are still there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bringing the users back under monitoring...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the unmonitored users...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unmonitored users could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UserBlocking</name>
    <message>
        <source>Block</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unblock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Storing the users...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UserColumns</name>
    <message>
        <source>Username</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Workstation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MAC Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UserFilter</name>
    <message>
        <source>There is no mode &quot;%1&quot;. The modes are: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no range of addresses such as 10.1.2.0/24 or 10.1.2.5-10.1.2.9.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing stands between the quotes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A name is missing behind &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A word has at most %1 characters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>At most %1 words can be looked for at once.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UserPlan</name>
    <message>
        <source>Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MAC Address</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This user has been deleted meanwhile.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WhyPanel</name>
    <message>
        <source>&amp;Block</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>U&amp;nblock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Why, and until when</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blocks the chosen users at once (Ctrl+B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lifts the administrator&apos;s block of the chosen users (Ctrl+Shift+B)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, and %2 more chosen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a user in the list.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WhySide</name>
    <message>
        <source>&amp;Why, and until when</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show why the chosen user may send or not, and until when</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Block</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unblock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo</source>
        <translation type="unfinished"></translation>
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
