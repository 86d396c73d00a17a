<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>NumberField</name>
    <message numerus="yes">
        <source>Please enter a number between %1 and %2, with at most %n decimals.</source>
        <translation>
            <numerusform>Please enter a number between %1 and %2, with at most %n decimal.</numerusform>
            <numerusform>Please enter a number between %1 and %2, with at most %n decimals.</numerusform>
        </translation>
    </message>
</context>
</TS>
