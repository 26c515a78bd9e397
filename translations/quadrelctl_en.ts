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
    <message numerus="yes">
        <source>Set the clocks of %n unit(s)?</source>
        <translation>
            <numerusform>Set the clocks of %n unit?</numerusform>
            <numerusform>Set the clocks of %n units?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unit(s) failed before anything was sent, and --max-failures allows %1: no unit was changed</source>
        <translation>
            <numerusform>%n unit failed before anything was sent, and --max-failures allows %1: no unit was changed</numerusform>
            <numerusform>%n units failed before anything was sent, and --max-failures allows %1: no unit was changed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Run &quot;%1&quot; on %n unit(s)?</source>
        <translation>
            <numerusform>Run &quot;%1&quot; on %n unit?</numerusform>
            <numerusform>Run &quot;%1&quot; on %n units?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the run has written its document, and the unit holds something else now, with %n change(s); start again without --resume to write it again</source>
        <translation>
            <numerusform>the run has written its document, and the unit holds something else now, with %n change; start again without --resume to write it again</numerusform>
            <numerusform>the run has written its document, and the unit holds something else now, with %n changes; start again without --resume to write it again</numerusform>
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
