<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AccountDialog</name>
    <message>
        <source>Reading the account...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The credits could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changing the account...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AccountPage</name>
    <message>
        <source>Reading the account...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The credits could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Action</name>
    <message>
        <source>What is not named here was written as it was entered.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please look at it again before you repeat it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was changed in the database.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user&apos;s properties were not stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the user&apos;s properties were stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The group&apos;s properties were not stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the group&apos;s properties were stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The account was not changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the account was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No user&apos;s access properties were changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the users&apos; access properties were changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The group was not changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the group was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No user was deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the users were deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No user was moved to the unmonitored list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the users were moved to the unmonitored list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No user was brought back under monitoring.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the users were brought back under monitoring.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The group was not added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the group was added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The group was not renamed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the group was renamed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The group was not deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the group was deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user of an excluded address was not removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the user of an excluded address was removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not all protocols and ports were stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the protocols and ports were stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not all logins were stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the logins were stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not all records were removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether the records were removed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorApp</name>
    <message>
        <source>Opening the database...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorGroupPPage</name>
    <message>
        <source>Reading the users of other groups...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The users of other groups could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorView</name>
    <message>
        <source>Changing the group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleting users...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moving users to the unmonitored list...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CAdministratorViewGrp</name>
    <message>
        <source>Deleting the group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Renaming...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CSplitterFrame</name>
    <message>
        <source>It was not kept that the console has been started.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The lists could not be read; the failed statements tell why.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The first %1 of %2 %3 are listed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>groups</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChangeGroupDialog</name>
    <message>
        <source>Adding the group...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleting the group...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Failure</name>
    <message>
        <source>The database refused it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program holds the database.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Somebody else changed the same at that moment.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no connection to the database.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database takes no changes now.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database does not answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The connection to the database was lost while it was being written.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FrameStatusBar</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LimitsPage</name>
    <message>
        <source>Reading the limits...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The limits could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoginSave</name>
    <message>
        <source>no limit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The login %1 was not saved: somebody else has made it meanwhile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The login %1 was not saved: somebody else has removed it meanwhile. It is no longer listed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the limit of the workstation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the access to personal statistics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the bound user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Login %1: %2 was changed meanwhile to %3 – overwrite?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The login %1 was not removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The login %1 was not saved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoginStorage</name>
    <message>
        <source>It is not known what was saved. Please look at the logins again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The other changes were saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was saved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ManyUsersDialog</name>
    <message>
        <source>Changing the users...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MessagePane</name>
    <message>
        <source>The service is being told of the change...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The change is in force.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The service was not told and will find the change in the database.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The change will be in force when the service reads the database next, within %1 seconds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The change will be in force when the service starts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings will be in force when the service is restarted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the lists...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No connection to the database</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PortDenials</name>
    <message>
        <source>1 denied port of users and groups names %1 and goes with it. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%2 denied ports of users and groups name %1 and go with it. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PrintPages</name>
    <message>
        <source>No printer is installed. The report can be saved as PDF.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProtocolSave</name>
    <message>
        <source>No protocol and no port was stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No protocol and no port was stored: what stands in the database could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What was removed of %1 stays: whom its ports are denied to could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What was removed of %1 stays.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was not added, nor its ports.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was added without its ports.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was removed by somebody else meanwhile and does not come back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Whether the port %1 still stands is not known.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 was not added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The ports of the removed protocol %1 are still stored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was not removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port %1 was not removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Users and groups are still denied the removed port %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Whether %1 is monitored was not stored.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReconnectDialog</name>
    <message>
        <source>The Tollbrook service is currently unavailable. This may be caused by the service being stopped or by communication problems. You still can administer users and set options, but they will not be enforced until you restart the service. </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try to reconnect?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connection restored</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tollbrook Administrator successfully connected to the service. Since now all changes in user set up will be enforced immediately</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportFilterDialog</name>
    <message>
        <source>Users to report on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Groups to report on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt; &amp;Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;&lt; Add a&amp;ll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Remove &gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>R&amp;emove all &gt;&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report on &amp;these users:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report on &amp;these groups:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Other users:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Other groups:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>With none or all of them chosen the report is made on everybody.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportHeading</name>
    <message>
        <source>%1 and %2 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>all available</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>users %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>groups %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>all users and groups</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportViewer</name>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select a report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report was stopped.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No font is installed; install fonts-dejavu-core</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 rows read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report was not printed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Printing was stopped; pages sent before: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report was sent to the printer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spreadsheet (*.xlsx)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text with commas (*.csv)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Web page (*.html)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report was not saved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportsDialog</name>
    <message>
        <source>Reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use data to report on:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All available</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Today</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last week</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Since</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Until</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Users to report on...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Groups to report on...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Generate report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the users...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the groups...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The users cannot be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The groups cannot be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You entered incorrect time period. Please re-enter one of the dates</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SaveReport</name>
    <message>
        <source>Not all settings were written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left as they were: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not known whether everything was written. Please look at it again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What is not named here was written as it was entered.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SaveSteps</name>
    <message>
        <source>Whether a user has the excluded address %1 is not known.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The users of excluded addresses were not removed, since the addresses cannot be written either.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The protocol %1 and its ports stay as they were.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ServiceControlDialog</name>
    <message>
        <source>Service is started</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Service is stopped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Service control</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsNames</name>
    <message>
        <source>the network adapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the address ranges and excluded addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the authorization</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the currency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the properties of new users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the excluded addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the identification of users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the monitored protocols</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the monitored protocols and identification of users</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the price</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the address ranges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the update period</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the update period, control of MAC addresses and client program</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimePage</name>
    <message>
        <source>Reading the times...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The time ranges could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ViewerBar</name>
    <message>
        <source>Print...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save as...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fit width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> &amp;Zoom: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> of %1 </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WaitDialog</name>
    <message>
        <source>Please wait</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WizardProtocols</name>
    <message>
        <source>What was removed of %1 stays.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was removed by somebody else meanwhile and does not come back.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
