<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="zh_CN">
<context>
    <name>PackageDevice</name>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包长度与实际的数据包长度不一致！</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PackageEvent</name>
    <message>
        <source>有效数据长度超出范围！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包不完整！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包长度与实际的数据包长度不一致！</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PackageTimeTrigger</name>
    <message>
        <source>触发数据超出最大范围，最多为316个字节！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(ID:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包长度与实际的数据包长度不一致！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>触发事件个数已超出最大个数，最大为128个事件！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>描述信息数长度有误！</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PackageTrigger</name>
    <message>
        <source>触发数据超出最大范围，最多为316个字节！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>输入-低电平</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>输入-高电平</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(ID:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包长度与实际的数据包长度不一致！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>触发事件个数已超出最大个数，最大为128个事件！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>描述信息数长度有误！</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProtocolCreate</name>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>请求数据类型与返回数据类型不一致！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包长度与请求数据长度不一致！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包不完整！</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UnPackage</name>
    <message>
        <source>超时！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>回读设备信息</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>配置参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>回读配置参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>回读事件参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>回读触发参数</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>校时回读</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>数据包长度小于最小数据包长度！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>同步本地时间</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>网络设置</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>升级中
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>升级</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>重连设备中</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>XmlFile</name>
    <message>
        <source>Hex</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ASCII</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>事件(</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM A-1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM A-2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM A-3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM A-4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM B-1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM B-2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM B-3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM B-4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM C-1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM C-2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM C-3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM C-4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM D-1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM D-2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM D-3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM D-4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO A-1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO A-2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO A-3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO A-4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO B-1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO B-2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO B-3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO B-4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO C-1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO C-2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO C-3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO C-4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO D-1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO D-2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO D-3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IO D-4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>XML嵌套层数过多！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>打开文件失败！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>XML节点为空！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>文件中无事件数据！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>文件中不存在事件数据！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>事件ID重复！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>文件中无触发数据！</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>文件中不存在触发数据！</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
