<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>quadrelctl</name>
    <message numerus="yes">
        <source>%n day(s) %1</source>
        <translation>
            <numerusform>%n day %1</numerusform>
            <numerusform>%n days %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Write %n change(s) to %1?</source>
        <translation>
            <numerusform>Write %n change to %1?</numerusform>
            <numerusform>Write %n changes to %1?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n failed</source>
        <translation>
            <numerusform>, %n failed</numerusform>
            <numerusform>, %n failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> and %n more</source>
        <translation>
            <numerusform> and %n more</numerusform>
            <numerusform> and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n change(s)</source>
        <translation>
            <numerusform>, %n change</numerusform>
            <numerusform>, %n changes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n change(s)</source>
        <translation>
            <numerusform>%n change</numerusform>
            <numerusform>%n changes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) from %1</source>
        <translation>
            <numerusform>%n change from %1</numerusform>
            <numerusform>%n changes from %1</numerusform>
        </translation>
    </message>
</context>
</TS>
