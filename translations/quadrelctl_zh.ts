<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>PackageTrigger</name>
    <message>
        <source>输入-高电平</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>输入-低电平</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UnitTransport</name>
    <message>
        <source>%1 closed the connection in the middle of a reply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no such host</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 does not answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: interrupted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 closed the connection without an answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 refused the connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 reset the connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be reached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sent a damaged reply: its checksum is wrong</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sent something that is no reply of a unit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>quadrelctl</name>
    <message>
        <source>%1 is no subnet mask for a unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is no address for a unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is the network or the broadcast address of its subnet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the gateway %1 is not in the subnet of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the same as this machine&apos;s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 days %2</source>
        <translation type="unfinished"></translation>
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
        <source>not a real time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> [y/N] </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(none)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>command %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>text: %1</source>
        <translation type="unfinished"></translation>
    </message>
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
        <source>Inspection</source>
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
        <source>Command</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repeat</source>
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
    <message>
        <source>Weekdays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
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
        <source>DHCP</source>
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
        <source>Ethernet link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Serial ports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Relays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Infra-red ports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SERIAL PORTS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO LINES</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EVENTS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TRIGGERS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TIME TRIGGERS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CLOCK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reply port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>this machine has no network address to search from</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>searching, %1 s left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no unit has answered within %1 ms</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>more than one unit has answered; choose one with --unit: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: the file is empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the output can&apos;t be written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no terminal to confirm on; --yes goes on without</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Old</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give the unit the new address?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing was changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit has taken the address %1.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the name of the file is empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Where the unit is, as in tcp://192.168.1.10:3801</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no address of a unit: tcp://HOST:PORT or udp://HOST:PORT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print JSON</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show what a unit says about itself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read all that a unit stores</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read the only unit that a search of the network finds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save to a project file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or set a unit&apos;s clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;now&quot;, or a time like &quot;2026/11/14  06:05:49&quot;, with two blanks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no time of the years 2000 to 2099 in the form &quot;2026/11/14  06:05:49&quot;, with two blanks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show what a project file holds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The project file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write a project file to a unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write these sections alone: config, events, triggers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>List each change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tell what would change, and write nothing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove the unit&apos;s time triggers, which no file holds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give a unit a fixed address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no IPv4 address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The new address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The subnet mask</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The gateway, or 0.0.0.0 for none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do not ask</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restart a unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit goes back to its default address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace a unit&apos;s firmware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The streamed image, whose first 90 bytes are the remark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The addressed image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The upgrade&apos;s descriptor, to be shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write the remark of an image to a unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find the units on the network</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print the address of the first unit alone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search as long as an upgrade may take, for units of any model</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configure a control unit over the network.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a document type has no place in a project file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2 records of &quot;%3&quot; were left out: of another shape, or too many</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no section of a project file is there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is write-protected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file can&apos;t be written; what was there before still is</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>event names are not saved: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>event types without a word are not saved: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Modbus triggers are not saved: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the ids of triggers are not saved: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>time triggers are not saved: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the unit&apos;s event names are lost, no file holds them: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file has no word for the types of some of the unit&apos;s events, which follow from the commands again: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the unit&apos;s Modbus triggers are lost, no file holds them: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the unit&apos;s triggers are numbered anew, no file holds their ids: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the unit&apos;s time triggers are removed: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>event %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: its command has more than %2 bytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: its description has more than %2 characters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>trigger %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: its parameter has more than %2 bytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: it runs more than %2 events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>serial port %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>baud rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>data bits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>stop bits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>inspection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO line %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>id</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>command</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>time trigger %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>repeat</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>from</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>until</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>weekdays</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delays that are no whole number of 10 ms, up to 65530 ms, can&apos;t be written as they are: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>serial triggers on COM D-3 and COM D-4 read back as COM D-4 and COM A-1: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>triggers and time triggers without an event are written with the event 0: %1 records</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a unit has room for %1 events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a unit has room for %1 triggers and time triggers together, not for %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The remark of %1 was written.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit was told to restart with its default address.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit restarts and keeps its address.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 did not confirm its new address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>interrupted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>device information read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>serial ports and IO lines read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>events read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>triggers read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>time triggers read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
(Communication/timeout in configWidget.ini is missing or 0: no unit can answer in that time)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: the section &quot;%2&quot; is missing or empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Upgrade of module %1 to version %2
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
The unit may hold half an image. Run the upgrade again, without switching the unit off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>both images were sent, but the unit has not come back within %1 ms (Upgrade/timeout in configWidget.ini)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The unit is back with version %1; it was %2.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 % sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>[%1%2] %3 %  %4 KiB/s  %5 s left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: the section for &quot;%2&quot; is missing or empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>serial ports and IO lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>triggers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>time triggers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2 on the unit, %3 to be written; %4 changed, %5 added, %6 removed
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not as written: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the unit does not hold what was written to it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--drop-time-triggers goes with the section of triggers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: the section &quot;%2&quot; is missing or empty; it is not written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
The unit may hold some of the new records beside old ones.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Written and read back: the unit holds what the file says.
</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
