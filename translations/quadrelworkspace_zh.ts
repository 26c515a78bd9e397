<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>quadrelworkspace</name>
    <message>
        <source>%1: not a regular file</source>
        <translation>%1：不是普通文件</translation>
    </message>
    <message>
        <source>%1: the file is larger than %2 MB</source>
        <translation>%1：文件大于 %2 MB</translation>
    </message>
    <message>
        <source>%1: the file is empty, and an image is due</source>
        <translation>%1：文件为空，这里需要固件映像</translation>
    </message>
    <message>
        <source>%1: this is XML, and an image is due</source>
        <translation>%1：这是 XML，这里需要固件映像</translation>
    </message>
    <message>
        <source>%1: this is text, and an image is due</source>
        <translation>%1：这是文本，这里需要固件映像</translation>
    </message>
    <message>
        <source>%1: the descriptor names no module; the unit is of model %2</source>
        <translation>%1：描述文件没有写明模块；该设备的型号是 %2</translation>
    </message>
    <message>
        <source>%1: the descriptor is for module %2, and the unit is of model %3</source>
        <translation>%1：描述文件针对模块 %2，而该设备的型号是 %3</translation>
    </message>
    <message>
        <source>%1: the descriptor names no version; the unit has %2</source>
        <translation>%1：描述文件没有写明版本；设备上的版本是 %2</translation>
    </message>
    <message>
        <source>%1: version %2 is the one that the unit has</source>
        <translation>%1：版本 %2 就是设备上已有的版本</translation>
    </message>
    <message>
        <source>the unit came back unchanged, with version %1</source>
        <translation>设备重新上线后没有变化，版本仍为 %1</translation>
    </message>
    <message>
        <source>the unit came back with version %1, and %2 says %3</source>
        <translation>设备重新上线后的版本是 %1，而 %2 写的是 %3</translation>
    </message>
    <message>
        <source>%1 (process %2, user %3) since %4</source>
        <translation>%1（进程 %2，用户 %3，自 %4 起）</translation>
    </message>
    <message>
        <source>the unit with serial number %1</source>
        <translation>序列号为 %1 的设备</translation>
    </message>
    <message>
        <source>%1 is in use by %2; wait until it has ended</source>
        <translation>%1 正被 %2 使用；请等它结束</translation>
    </message>
    <message>
        <source>another program</source>
        <translation>另一个程序</translation>
    </message>
    <message>
        <source>cannot lock %1: %2: %3</source>
        <translation>无法锁定 %1：%2：%3</translation>
    </message>
</context>
</TS>
