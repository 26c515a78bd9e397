<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>Place</name>
    <message>
        <source>network</source>
        <translation>网络设置</translation>
    </message>
    <message>
        <source>reset</source>
        <translation>复位</translation>
    </message>
    <message>
        <source>device information</source>
        <translation>设备信息</translation>
    </message>
    <message>
        <source>serial ports</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>IO lines</source>
        <translation>IO 线路</translation>
    </message>
    <message>
        <source>trigger count</source>
        <translation>触发数量</translation>
    </message>
    <message>
        <source>trigger</source>
        <translation>触发</translation>
    </message>
    <message>
        <source>event count</source>
        <translation>事件数量</translation>
    </message>
    <message>
        <source>event</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>clock</source>
        <translation>时钟</translation>
    </message>
    <message>
        <source>upgrade length</source>
        <translation>升级长度</translation>
    </message>
    <message>
        <source>upgrade position</source>
        <translation>升级位置</translation>
    </message>
    <message>
        <source>upgrade command</source>
        <translation>升级命令</translation>
    </message>
    <message>
        <source>upgrade size</source>
        <translation>升级大小</translation>
    </message>
    <message>
        <source>addressed image</source>
        <translation>按地址写入的映像</translation>
    </message>
    <message>
        <source>streamed image</source>
        <translation>流式映像</translation>
    </message>
    <message>
        <source>upgrade word</source>
        <translation>升级字</translation>
    </message>
    <message>
        <source>upgrade start word</source>
        <translation>升级开始字</translation>
    </message>
    <message>
        <source>remark</source>
        <translation>备注</translation>
    </message>
</context>
<context>
    <name>UnitProgress</name>
    <message>
        <source>device information</source>
        <translation>设备信息</translation>
    </message>
    <message>
        <source>serial ports</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>IO lines</source>
        <translation>IO 线路</translation>
    </message>
    <message>
        <source>event %1 of %2</source>
        <translation>事件 %1 / %2</translation>
    </message>
    <message>
        <source>trigger %1 of %2</source>
        <translation>触发 %1 / %2</translation>
    </message>
    <message>
        <source>time triggers: entry %1 of %2</source>
        <translation>定时触发：第 %1 / %2 项</translation>
    </message>
    <message>
        <source>clock</source>
        <translation>时钟</translation>
    </message>
    <message>
        <source>%1 % sent</source>
        <translation>已发送 %1 %</translation>
    </message>
</context>
<context>
    <name>UnitSession</name>
    <message>
        <source>a unit&apos;s clock runs from 2000 to 2099</source>
        <translation>设备时钟的范围是 2000 年至 2099 年</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an IPv4 address</source>
        <translation>“%1”不是 IPv4 地址</translation>
    </message>
    <message>
        <source>there is no link to %1: %2</source>
        <translation>没有到 %1 的连接：%2</translation>
    </message>
    <message>
        <source>another operation on %1 runs</source>
        <translation>%1 上正在进行另一项操作</translation>
    </message>
</context>
<context>
    <name>UnitTransport</name>
    <message>
        <source>%1 closed the connection in the middle of a reply</source>
        <translation>%1 在应答中途关闭了连接</translation>
    </message>
    <message>
        <source>%1 sent a reply of another length than was asked for</source>
        <translation>%1 的应答长度与请求的不符</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>%1 has not answered the read of %2 within %3 ms</source>
        <translation>%1 在 %3 毫秒内没有应答对“%2”的读取</translation>
    </message>
    <message>
        <source>%1 has not answered the write of %2 within %3 ms</source>
        <translation>%1 在 %3 毫秒内没有应答对“%2”的写入</translation>
    </message>
    <message>
        <source>%1: no such host</source>
        <translation>%1：没有这台主机</translation>
    </message>
    <message>
        <source>%1 closed the connection without an answer</source>
        <translation>%1 没有应答就关闭了连接</translation>
    </message>
    <message>
        <source>%1 does not answer</source>
        <translation>%1 没有应答</translation>
    </message>
    <message>
        <source>%1 refused the connection</source>
        <translation>%1 拒绝了连接</translation>
    </message>
    <message>
        <source>%1 reset the connection</source>
        <translation>%1 重置了连接</translation>
    </message>
    <message>
        <source>%1 can&apos;t be reached</source>
        <translation>无法到达 %1</translation>
    </message>
    <message>
        <source>%1 sent a damaged reply: its checksum is wrong</source>
        <translation>%1 的应答已损坏：校验和不符</translation>
    </message>
    <message>
        <source>%1 sent something that is not a reply of a unit</source>
        <translation>%1 发来的不是设备的应答</translation>
    </message>
    <message>
        <source>%1 (sent %2 times)</source>
        <translation>%1（已发送 %2 次）</translation>
    </message>
</context>
</TS>
