<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>BytesEditor</name>
    <message>
        <source>Hexadecimal digits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>He&amp;x</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The digit at place %1 needs a second one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” at place %2 is no hexadecimal digit; 0 to 9 and A to F are allowed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The backslash at place %1 begins no escape; \\ \r \n \t \0 and \xHH are allowed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” at place %2 is more than one byte; type its bytes as hexadecimal digits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 bytes, %3 left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 bytes: %3 too many</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CellDelegate</name>
    <message>
        <source>unfinished: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Cells</name>
    <message>
        <source>For ever</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ChoiceEditor</name>
    <message>
        <source>Choices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is no number from %2 to %3.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Choices</name>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Low</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Modbus</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Once</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Columns</name>
    <message>
        <source>Port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Baud rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data bits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop bits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Id</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Command</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waits for</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weekdays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Until</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ComparisonPage</name>
    <message>
        <source>the unit, as it was read last</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>backup of %1, before &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compare with a document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit documents (*.yaml *.yml *.json *.xml);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is nothing to compare with yet. Read the unit, open another document, or choose a file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Both hold the same.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) lead from these contents to the others. Take the checked ones over, or leave them.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Take changes of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compare with</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take checked changes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DateEditor</name>
    <message>
        <source>for&amp;ever</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Forever</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not “%1”</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DateRangeEditor</name>
    <message>
        <source>Fro&amp;m</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Until</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It ends before it begins, and never fires.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n day(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DelayEditor</name>
    <message>
        <source>ms</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit of time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>0 to %1 ms</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DifferenceTree</name>
    <message>
        <source>added</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>removed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>moved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>changed and moved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>After</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Differences</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EventNames</name>
    <message>
        <source>%1 (missing)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EventPicker</name>
    <message>
        <source>Search by number or name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search for events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chosen events, in the order in which they run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>D&amp;own</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add the event</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take the event out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run the event earlier</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run the event later</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n too many</source>
        <comment>events</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Chosen</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n chosen, in this order</source>
        <comment>events</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FindingsList</name>
    <message numerus="yes">
        <source>%n error(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n note(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Findings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing is wrong.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FindingsModel</name>
    <message>
        <source>Where</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FirmwarePage</name>
    <message>
        <source>Firmware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace the firmware of %1? The unit has version %2, and restarts afterwards.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Both images are written, then the unit restarts. With a descriptor, model and version are compared first. Read the unit before.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Streamed image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Addressed image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Descriptor (optional)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace the firmware...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LogPage</name>
    <message>
        <source>There are no frames to save yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logs (*.log);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No frames yet. They appear when a unit is read or written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>busy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>differs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was changed by another program. &quot;Read the file again&quot; in the File menu shows what is in it now.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The document can&apos;t be opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open documents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit documents (*.yaml *.yml *.json *.xml);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address, as in 192.168.1.21 or udp://192.168.1.21:3801</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no address; tcp://HOST:PORT is one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>YAML documents (*.yaml *.yml);;JSON documents (*.json);;Project files (*.xml)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A project file has no place for some of it. Save it anyway?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the changes to &quot;%1&quot;?</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>The program did not end well, and %n document(s) had unsaved changes. Open them?</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Steps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a &amp;unit...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read the file &amp;again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Write...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>As it was opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Units and documents</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NetworkDialog</name>
    <message>
        <source>Each needs four numbers of 0 to 255, joined by dots.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give the unit a fixed address? It is %1 now. A wrong one can put the unit out of reach.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mask</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the address</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OperationBar</name>
    <message>
        <source>Reading the unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing to the unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setting the clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setting the network address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restarting the unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing the remark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing the firmware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Written and read back. What the unit held before is in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Written and read back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The clock was set.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit has taken the new address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit restarts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The remark was written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit is back with its new firmware.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State of the work</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OverviewPage</name>
    <message>
        <source>the same as this machine&apos;s</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n day(s) %1</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 ahead of this machine&apos;s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 behind this machine&apos;s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the unit&apos;s clock to the time of this machine?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restart</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restart the unit? It keeps its address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restart with default address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit restarts, and goes back from %1 to its default address. Restart it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Streamed image with the remark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write the remark of %1 to %2?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not read yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a real time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>by DHCP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>fixed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 serial ports, %2 IO lines, %3 relays, %4 infrared ports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These contents do not tell of a device. Read a unit to see it here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Room on the unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Model</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mask</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address is</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Triggers and time triggers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read the clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Network address...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restart...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restart with default address...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remark...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PlanDialog</name>
    <message>
        <source>This can&apos;t be written to %1. Mend the errors first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 holds all of this already; there is nothing to write.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Write %n change(s) to %1?</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Write to the unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit has changed since it was read; the changes are counted from what it holds now.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Findings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the unit holds now is kept as a backup first. After writing it is read back and compared.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>&quot;%1&quot; is neither a file nor an address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The language of the program: en or zh.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looks at control units and their documents, and changes them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit documents (YAML, JSON) and project files to open.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Units to read, as in tcp://192.168.1.21.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line %1, %2: &quot;%3&quot; can&apos;t be understood; nothing was inserted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no rows to insert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Sections</name>
    <message>
        <source>Serial ports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time triggers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No serial ports. Read a unit to see its ports.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No IO lines. Read a unit to see its lines.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No events yet. An event is a command that is sent, or a delay. Press Insert to add one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No triggers yet. A trigger runs events when bytes arrive or a line changes. Press Insert to add one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No time triggers yet. A time trigger runs events at a time of day. Press Insert to add one.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TablePage</name>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a row below the selected one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a copy of the selected rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete the selected rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the selected rows up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the selected rows down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy the selected rows as text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insert rows of text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Order of the unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the rows in the order of the unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter of the rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What went wrong</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No row contains &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TextEditor</name>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n left</source>
        <comment>UTF-16 units</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n too many</source>
        <comment>UTF-16 units</comment>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TimeEditor</name>
    <message>
        <source>Time of day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not “%1”</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UnitPage</name>
    <message>
        <source>Overview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pages of the unit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UnitWorkspace</name>
    <message>
        <source>New document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read from the unit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UnitsPanel</name>
    <message>
        <source>Open a site&apos;s inventory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inventories (*.yaml *.yml);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>reachable</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Searching, %n found</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n found</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search the network for units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a unit by its address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Site...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add the units of a site&apos;s inventory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Model</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Units and documents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Documents</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WeekdayEditor</name>
    <message>
        <source>Number %1, which is no day</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Weekdays</name>
    <message>
        <source>Mon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thu</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fri</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sun</source>
        <translation type="unfinished"></translation>
    </message>
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
</TS>
