<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>ComparisonPage</name>
    <message numerus="yes">
        <source>%n change(s) lead from these contents to the others. Take the checked ones over, or leave them.</source>
        <translation>
            <numerusform>%n change leads from these contents to the others. Take it over if it is checked, or leave it.</numerusform>
            <numerusform>%n changes lead from these contents to the others. Take the checked ones over, or leave them.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DateRangeEditor</name>
    <message numerus="yes">
        <source>%n day(s)</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>EventPicker</name>
    <message numerus="yes">
        <source>%n too many</source>
        <comment>events</comment>
        <translation>
            <numerusform>%n too many</numerusform>
            <numerusform>%n too many</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n chosen, in this order</source>
        <comment>events</comment>
        <translation>
            <numerusform>%n chosen, in this order</numerusform>
            <numerusform>%n chosen, in this order</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FindingsList</name>
    <message numerus="yes">
        <source>%n error(s)</source>
        <translation>
            <numerusform>%n error</numerusform>
            <numerusform>%n errors</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation>
            <numerusform>%n warning</numerusform>
            <numerusform>%n warnings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n note(s)</source>
        <translation>
            <numerusform>%n note</numerusform>
            <numerusform>%n notes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LogPage</name>
    <message numerus="yes">
        <source>%n line(s)</source>
        <translation>
            <numerusform>%n line</numerusform>
            <numerusform>%n lines</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>The program did not end well, and %n document(s) had unsaved changes. Open them?</source>
        <translation>
            <numerusform>The program did not end well, and %n document had unsaved changes. Open it?</numerusform>
            <numerusform>The program did not end well, and %n documents had unsaved changes. Open them?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MapPicture</name>
    <message numerus="yes">
        <source>%n event(s) missing</source>
        <translation>
            <numerusform>%n event missing</numerusform>
            <numerusform>%n events missing</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unused</source>
        <comment>events</comment>
        <translation>
            <numerusform>%n unused</numerusform>
            <numerusform>%n unused</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MapView</name>
    <message numerus="yes">
        <source>%n event(s)</source>
        <translation>
            <numerusform>%n event</numerusform>
            <numerusform>%n events</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OverviewPage</name>
    <message numerus="yes">
        <source>%n day(s) %1</source>
        <translation>
            <numerusform>%n day %1</numerusform>
            <numerusform>%n days %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PlanDialog</name>
    <message numerus="yes">
        <source>Write %n change(s) to %1?</source>
        <translation>
            <numerusform>Write %n change to %1?</numerusform>
            <numerusform>Write %n changes to %1?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TextEditor</name>
    <message numerus="yes">
        <source>%n left</source>
        <comment>UTF-16 units</comment>
        <translation>
            <numerusform>%n left</numerusform>
            <numerusform>%n left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n too many</source>
        <comment>UTF-16 units</comment>
        <translation>
            <numerusform>%n too many</numerusform>
            <numerusform>%n too many</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TriggerWords</name>
    <message numerus="yes">
        <source>    and %n more</source>
        <comment>events</comment>
        <translation>
            <numerusform>    and %n more</numerusform>
            <numerusform>    and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UnitsPanel</name>
    <message numerus="yes">
        <source>Searching, %n found</source>
        <translation>
            <numerusform>Searching, %n found</numerusform>
            <numerusform>Searching, %n found</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n found</source>
        <translation>
            <numerusform>%n found</numerusform>
            <numerusform>%n found</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WeekPicture</name>
    <message numerus="yes">
        <source>%n time trigger(s) not in this &amp;week:</source>
        <translation>
            <numerusform>%n time trigger not in this &amp;week:</numerusform>
            <numerusform>%n time triggers not in this &amp;week:</numerusform>
        </translation>
    </message>
</context>
</TS>
