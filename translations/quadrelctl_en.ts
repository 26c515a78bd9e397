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
        <source>%1, %n byte(s)</source>
        <translation>
            <numerusform>%1, %n byte</numerusform>
            <numerusform>%1, %n bytes</numerusform>
        </translation>
    </message>
</context>
</TS>
