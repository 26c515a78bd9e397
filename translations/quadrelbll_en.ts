<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="zh_CN">
<context>
    <name>PackageDevice</name>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation>The packet is shorter than the shortest possible packet!</translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation>The type of the returned data is not the type that was requested!</translation>
    </message>
    <message>
        <source>数据包长度与实际的数据包长度不一致！</source>
        <translation>The length of the packet is not its actual length!</translation>
    </message>
</context>
<context>
    <name>PackageEvent</name>
    <message>
        <source>有效数据长度超出范围！</source>
        <translation>The length of the valid data is out of range!</translation>
    </message>
    <message>
        <source>数据包不完整！</source>
        <translation>The packet is incomplete!</translation>
    </message>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation>The packet is shorter than the shortest possible packet!</translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation>The type of the returned data is not the type that was requested!</translation>
    </message>
    <message>
        <source>数据包长度与实际的数据包长度不一致！</source>
        <translation>The length of the packet is not its actual length!</translation>
    </message>
</context>
<context>
    <name>PackageTimeTrigger</name>
    <message>
        <source>触发数据超出最大范围，最多为316个字节！</source>
        <translation>The trigger data is too long: at most 316 bytes!</translation>
    </message>
    <message>
        <source>(ID:</source>
        <translation>(ID:</translation>
    </message>
    <message>
        <source>)</source>
        <translation>)</translation>
    </message>
    <message>
        <source>;</source>
        <translation>;</translation>
    </message>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation>The packet is shorter than the shortest possible packet!</translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation>The type of the returned data is not the type that was requested!</translation>
    </message>
    <message>
        <source>数据包长度与实际的数据包长度不一致！</source>
        <translation>The length of the packet is not its actual length!</translation>
    </message>
    <message>
        <source>触发事件个数已超出最大个数，最大为128个事件！</source>
        <translation>The trigger has too many events: at most 128!</translation>
    </message>
    <message>
        <source>描述信息数长度有误！</source>
        <translation>The length of the description is wrong!</translation>
    </message>
</context>
<context>
    <name>PackageTrigger</name>
    <message>
        <source>触发数据超出最大范围，最多为316个字节！</source>
        <translation>The trigger data is too long: at most 316 bytes!</translation>
    </message>
    <message>
        <source>输入-低电平</source>
        <translation>输入-低电平</translation>
    </message>
    <message>
        <source>输入-高电平</source>
        <translation>输入-高电平</translation>
    </message>
    <message>
        <source>(ID:</source>
        <translation>(ID:</translation>
    </message>
    <message>
        <source>)</source>
        <translation>)</translation>
    </message>
    <message>
        <source>;</source>
        <translation>;</translation>
    </message>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation>The packet is shorter than the shortest possible packet!</translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation>The type of the returned data is not the type that was requested!</translation>
    </message>
    <message>
        <source>数据包长度与实际的数据包长度不一致！</source>
        <translation>The length of the packet is not its actual length!</translation>
    </message>
    <message>
        <source>触发事件个数已超出最大个数，最大为128个事件！</source>
        <translation>The trigger has too many events: at most 128!</translation>
    </message>
    <message>
        <source>描述信息数长度有误！</source>
        <translation>The length of the description is wrong!</translation>
    </message>
</context>
<context>
    <name>ProtocolCreate</name>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation>The packet is shorter than the shortest possible packet!</translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation>The type of the returned data is not the type that was requested!</translation>
    </message>
    <message>
        <source>数据包长度与请求数据长度不一致！</source>
        <translation>The length of the packet is not the length that was requested!</translation>
    </message>
    <message>
        <source>数据包不完整！</source>
        <translation>The packet is incomplete!</translation>
    </message>
</context>
<context>
    <name>UnPackage</name>
    <message>
        <source>超时！</source>
        <translation> timed out!</translation>
    </message>
    <message>
        <source>回读设备信息</source>
        <translation>Reading back the device information</translation>
    </message>
    <message>
        <source>配置参数</source>
        <translation>Writing the configuration parameters</translation>
    </message>
    <message>
        <source>回读配置参数</source>
        <translation>Reading back the configuration parameters</translation>
    </message>
    <message>
        <source>回读事件参数</source>
        <translation>Reading back the event parameters</translation>
    </message>
    <message>
        <source>回读触发参数</source>
        <translation>Reading back the trigger parameters</translation>
    </message>
    <message>
        <source>校时回读</source>
        <translation>Reading back the clock</translation>
    </message>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation>The packet is shorter than the shortest possible packet!</translation>
    </message>
    <message>
        <source>同步本地时间</source>
        <translation>Setting the clock to the local time</translation>
    </message>
    <message>
        <source>网络设置</source>
        <translation>Writing the network settings</translation>
    </message>
    <message>
        <source>升级中
</source>
        <translation>Upgrading
</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>升级</source>
        <translation>Upgrading</translation>
    </message>
    <message>
        <source>重连设备中</source>
        <translation>Reconnecting to the device</translation>
    </message>
</context>
<context>
    <name>XmlFile</name>
    <message>
        <source>Hex</source>
        <translation>Hex</translation>
    </message>
    <message>
        <source>ASCII</source>
        <translation>ASCII</translation>
    </message>
    <message>
        <source>Deal</source>
        <translation>Deal</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Delay</translation>
    </message>
    <message>
        <source>COM</source>
        <translation>COM</translation>
    </message>
    <message>
        <source>IO</source>
        <translation>IO</translation>
    </message>
    <message>
        <source>事件(</source>
        <translation>事件(</translation>
    </message>
    <message>
        <source>)</source>
        <translation>)</translation>
    </message>
    <message>
        <source>COM A-1</source>
        <translation>COM A-1</translation>
    </message>
    <message>
        <source>COM A-2</source>
        <translation>COM A-2</translation>
    </message>
    <message>
        <source>COM A-3</source>
        <translation>COM A-3</translation>
    </message>
    <message>
        <source>COM A-4</source>
        <translation>COM A-4</translation>
    </message>
    <message>
        <source>COM B-1</source>
        <translation>COM B-1</translation>
    </message>
    <message>
        <source>COM B-2</source>
        <translation>COM B-2</translation>
    </message>
    <message>
        <source>COM B-3</source>
        <translation>COM B-3</translation>
    </message>
    <message>
        <source>COM B-4</source>
        <translation>COM B-4</translation>
    </message>
    <message>
        <source>COM C-1</source>
        <translation>COM C-1</translation>
    </message>
    <message>
        <source>COM C-2</source>
        <translation>COM C-2</translation>
    </message>
    <message>
        <source>COM C-3</source>
        <translation>COM C-3</translation>
    </message>
    <message>
        <source>COM C-4</source>
        <translation>COM C-4</translation>
    </message>
    <message>
        <source>COM D-1</source>
        <translation>COM D-1</translation>
    </message>
    <message>
        <source>COM D-2</source>
        <translation>COM D-2</translation>
    </message>
    <message>
        <source>COM D-3</source>
        <translation>COM D-3</translation>
    </message>
    <message>
        <source>COM D-4</source>
        <translation>COM D-4</translation>
    </message>
    <message>
        <source>IO A-1</source>
        <translation>IO A-1</translation>
    </message>
    <message>
        <source>IO A-2</source>
        <translation>IO A-2</translation>
    </message>
    <message>
        <source>IO A-3</source>
        <translation>IO A-3</translation>
    </message>
    <message>
        <source>IO A-4</source>
        <translation>IO A-4</translation>
    </message>
    <message>
        <source>IO B-1</source>
        <translation>IO B-1</translation>
    </message>
    <message>
        <source>IO B-2</source>
        <translation>IO B-2</translation>
    </message>
    <message>
        <source>IO B-3</source>
        <translation>IO B-3</translation>
    </message>
    <message>
        <source>IO B-4</source>
        <translation>IO B-4</translation>
    </message>
    <message>
        <source>IO C-1</source>
        <translation>IO C-1</translation>
    </message>
    <message>
        <source>IO C-2</source>
        <translation>IO C-2</translation>
    </message>
    <message>
        <source>IO C-3</source>
        <translation>IO C-3</translation>
    </message>
    <message>
        <source>IO C-4</source>
        <translation>IO C-4</translation>
    </message>
    <message>
        <source>IO D-1</source>
        <translation>IO D-1</translation>
    </message>
    <message>
        <source>IO D-2</source>
        <translation>IO D-2</translation>
    </message>
    <message>
        <source>IO D-3</source>
        <translation>IO D-3</translation>
    </message>
    <message>
        <source>IO D-4</source>
        <translation>IO D-4</translation>
    </message>
    <message>
        <source>XML嵌套层数过多！</source>
        <translation>The XML is nested too deeply!</translation>
    </message>
    <message>
        <source>XML实体过大！</source>
        <translation>The entities of the XML are too large!</translation>
    </message>
    <message>
        <source>XML节点过多！</source>
        <translation>The XML has too many nodes!</translation>
    </message>
    <message>
        <source>打开文件失败！</source>
        <translation>The file could not be opened!</translation>
    </message>
    <message>
        <source>XML节点为空！</source>
        <translation>The XML has no nodes!</translation>
    </message>
    <message>
        <source>文件中无事件数据！</source>
        <translation>The file holds no event data!</translation>
    </message>
    <message>
        <source>文件中不存在事件数据！</source>
        <translation>There is no event data in the file!</translation>
    </message>
    <message>
        <source>事件ID重复！</source>
        <translation>An event ID is there twice!</translation>
    </message>
    <message>
        <source>文件中无触发数据！</source>
        <translation>The file holds no trigger data!</translation>
    </message>
    <message>
        <source>文件中不存在触发数据！</source>
        <translation>There is no trigger data in the file!</translation>
    </message>
</context>
</TS>
