<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>PackageTrigger</name>
    <message>
        <source>输入-高电平</source>
        <translation>输入-高电平</translation>
    </message>
    <message>
        <source>输入-低电平</source>
        <translation>输入-低电平</translation>
    </message>
</context>
<context>
    <name>quadrelctl</name>
    <message>
        <source>%1 is no subnet mask for a unit</source>
        <translation>%1 不能用作设备的子网掩码</translation>
    </message>
    <message>
        <source>%1 is no address for a unit</source>
        <translation>%1 不能用作设备的地址</translation>
    </message>
    <message>
        <source>%1 is the network or the broadcast address of its subnet</source>
        <translation>%1 是其子网的网络地址或广播地址</translation>
    </message>
    <message>
        <source>the gateway %1 is not in the subnet of %2</source>
        <translation>网关 %1 不在 %2 的子网内</translation>
    </message>
    <message>
        <source>the same as this machine&apos;s</source>
        <translation>与本机相同</translation>
    </message>
    <message>
        <source>%1 days %2</source>
        <translation>%1 天 %2</translation>
    </message>
    <message>
        <source>%1 ahead of this machine&apos;s</source>
        <translation>比本机快 %1</translation>
    </message>
    <message>
        <source>%1 behind this machine&apos;s</source>
        <translation>比本机慢 %1</translation>
    </message>
    <message>
        <source>not a real time</source>
        <translation>不是真实的时间</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>警告：%1</translation>
    </message>
    <message>
        <source> [y/N] </source>
        <translation> [y/N] </translation>
    </message>
    <message>
        <source>yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>no</source>
        <translation>否</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>（无）</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>delay</source>
        <translation>延时</translation>
    </message>
    <message>
        <source>command %1</source>
        <translation>命令 %1</translation>
    </message>
    <message>
        <source>text: %1</source>
        <translation>文本：%1</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>Baud rate</source>
        <translation>波特率</translation>
    </message>
    <message>
        <source>Data bits</source>
        <translation>数据位</translation>
    </message>
    <message>
        <source>Stop bits</source>
        <translation>停止位</translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation>校验</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>线路</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>编号</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>描述</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>重复</translation>
    </message>
    <message>
        <source>From</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Until</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>Weekdays</source>
        <translation>星期</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>型号</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>版本</translation>
    </message>
    <message>
        <source>DHCP</source>
        <translation>DHCP</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>子网掩码</translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation>网关</translation>
    </message>
    <message>
        <source>Ethernet link</source>
        <translation>以太网连接</translation>
    </message>
    <message>
        <source>Serial ports</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>IO lines</source>
        <translation>IO 线路</translation>
    </message>
    <message>
        <source>Relays</source>
        <translation>继电器</translation>
    </message>
    <message>
        <source>Infra-red ports</source>
        <translation>红外端口</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>SERIAL PORTS</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>IO LINES</source>
        <translation>IO 线路</translation>
    </message>
    <message>
        <source>EVENTS</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>TRIGGERS</source>
        <translation>触发</translation>
    </message>
    <message>
        <source>TIME TRIGGERS</source>
        <translation>定时触发</translation>
    </message>
    <message>
        <source>CLOCK</source>
        <translation>时钟</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Reply port</source>
        <translation>应答端口</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>应答</translation>
    </message>
    <message>
        <source>this machine has no network address to search from</source>
        <translation>本机没有可用于搜索的网络地址</translation>
    </message>
    <message>
        <source>searching, %1 s left</source>
        <translation>正在搜索，还剩 %1 秒</translation>
    </message>
    <message>
        <source>no unit has answered within %1 ms</source>
        <translation>%1 毫秒内没有设备应答</translation>
    </message>
    <message>
        <source>more than one unit has answered; choose one with --unit: %1</source>
        <translation>有多台设备应答；请用 --unit 选择一台：%1</translation>
    </message>
    <message>
        <source>%1: not a regular file</source>
        <translation>%1：不是普通文件</translation>
    </message>
    <message>
        <source>%1: the file is empty</source>
        <translation>%1：文件为空</translation>
    </message>
    <message>
        <source>the output can&apos;t be written</source>
        <translation>无法写出结果</translation>
    </message>
    <message>
        <source>there is no terminal to confirm on; --yes goes on without</source>
        <translation>没有可供确认的终端；用 --yes 可不经确认继续</translation>
    </message>
    <message>
        <source>Old</source>
        <translation>旧</translation>
    </message>
    <message>
        <source>New</source>
        <translation>新</translation>
    </message>
    <message>
        <source>Give the unit the new address?</source>
        <translation>要把新地址写入设备吗？</translation>
    </message>
    <message>
        <source>nothing was changed</source>
        <translation>没有任何更改</translation>
    </message>
    <message>
        <source>The unit has taken the address %1.
</source>
        <translation>设备已采用地址 %1。
</translation>
    </message>
    <message>
        <source>the name of the file is empty</source>
        <translation>文件名为空</translation>
    </message>
    <message>
        <source>Where the unit is, as in tcp://192.168.1.10:3801</source>
        <translation>设备的位置，例如 tcp://192.168.1.10:3801</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no address of a unit: tcp://HOST:PORT or udp://HOST:PORT</source>
        <translation>“%1”不是设备的位置：应为 tcp://HOST:PORT 或 udp://HOST:PORT</translation>
    </message>
    <message>
        <source>Print JSON</source>
        <translation>输出 JSON</translation>
    </message>
    <message>
        <source>Show what a unit says about itself</source>
        <translation>显示设备的自述信息</translation>
    </message>
    <message>
        <source>Read all that a unit stores</source>
        <translation>读取设备保存的全部内容</translation>
    </message>
    <message>
        <source>Read the only unit that a search of the network finds</source>
        <translation>读取在网络上搜索到的唯一一台设备</translation>
    </message>
    <message>
        <source>Save to a project file</source>
        <translation>保存到工程文件</translation>
    </message>
    <message>
        <source>Show or set a unit&apos;s clock</source>
        <translation>显示或设置设备的时钟</translation>
    </message>
    <message>
        <source>&quot;now&quot;, or a time like &quot;2026/11/14  06:05:49&quot;, with two blanks</source>
        <translation>“now”，或形如“2026/11/14  06:05:49”的时间，中间两个空格</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no time of the years 2000 to 2099 in the form &quot;2026/11/14  06:05:49&quot;, with two blanks</source>
        <translation>“%1”不是 2000 至 2099 年间、形如“2026/11/14  06:05:49”（中间两个空格）的时间</translation>
    </message>
    <message>
        <source>Show what a project file holds</source>
        <translation>显示工程文件的内容</translation>
    </message>
    <message>
        <source>The project file</source>
        <translation>工程文件</translation>
    </message>
    <message>
        <source>Write a project file to a unit</source>
        <translation>把工程文件写入设备</translation>
    </message>
    <message>
        <source>Write these sections alone: config, events, triggers</source>
        <translation>只写入这些部分：config、events、triggers</translation>
    </message>
    <message>
        <source>List each change</source>
        <translation>列出每一处更改</translation>
    </message>
    <message>
        <source>Tell what would change, and write nothing</source>
        <translation>只说明会有哪些更改，不写入</translation>
    </message>
    <message>
        <source>Remove the unit&apos;s time triggers, which no file holds</source>
        <translation>删除设备的定时触发（文件不保存定时触发）</translation>
    </message>
    <message>
        <source>Give a unit a fixed address</source>
        <translation>给设备设置固定地址</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no IPv4 address</source>
        <translation>“%1”不是 IPv4 地址</translation>
    </message>
    <message>
        <source>The new address</source>
        <translation>新地址</translation>
    </message>
    <message>
        <source>The subnet mask</source>
        <translation>子网掩码</translation>
    </message>
    <message>
        <source>The gateway, or 0.0.0.0 for none</source>
        <translation>网关，0.0.0.0 表示没有</translation>
    </message>
    <message>
        <source>Do not ask</source>
        <translation>不询问</translation>
    </message>
    <message>
        <source>Restart a unit</source>
        <translation>重启设备</translation>
    </message>
    <message>
        <source>The unit goes back to its default address</source>
        <translation>设备恢复默认地址</translation>
    </message>
    <message>
        <source>Replace a unit&apos;s firmware</source>
        <translation>更换设备的固件</translation>
    </message>
    <message>
        <source>The streamed image, whose first 90 bytes are the remark</source>
        <translation>流式映像，其前 90 个字节是备注</translation>
    </message>
    <message>
        <source>The addressed image</source>
        <translation>按地址写入的映像</translation>
    </message>
    <message>
        <source>The upgrade&apos;s descriptor, to be shown</source>
        <translation>升级的描述文件，仅供显示</translation>
    </message>
    <message>
        <source>Write the remark of an image to a unit</source>
        <translation>把映像的备注写入设备</translation>
    </message>
    <message>
        <source>Find the units on the network</source>
        <translation>查找网络上的设备</translation>
    </message>
    <message>
        <source>Print the address of the first unit alone</source>
        <translation>只输出第一台设备的地址</translation>
    </message>
    <message>
        <source>Search as long as an upgrade may take, for units of any model</source>
        <translation>按升级所允许的时间搜索任何型号的设备</translation>
    </message>
    <message>
        <source>Configure a control unit over the network.</source>
        <translation>通过网络配置控制设备。</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>a document type has no place in a project file</source>
        <translation>工程文件中不允许有文档类型声明</translation>
    </message>
    <message>
        <source>%1: %2 records of &quot;%3&quot; were left out: of another shape, or too many</source>
        <translation>%1：“%3”中有 %2 条记录被略去：格式不符，或数量过多</translation>
    </message>
    <message>
        <source>no section of a project file is there</source>
        <translation>其中没有工程文件的任何部分</translation>
    </message>
    <message>
        <source>the file can&apos;t be written; what was there before still is</source>
        <translation>文件无法写入；原有内容没有改变</translation>
    </message>
    <message>
        <source>event names are not saved: %1 records</source>
        <translation>事件名称不保存：%1 条记录</translation>
    </message>
    <message>
        <source>event types without a word are not saved: %1 records</source>
        <translation>没有对应文字的事件类型不保存：%1 条记录</translation>
    </message>
    <message>
        <source>Modbus triggers are not saved: %1 records</source>
        <translation>Modbus 触发不保存：%1 条记录</translation>
    </message>
    <message>
        <source>the ids of triggers are not saved: %1 records</source>
        <translation>触发的编号不保存：%1 条记录</translation>
    </message>
    <message>
        <source>time triggers are not saved: %1 records</source>
        <translation>定时触发不保存：%1 条记录</translation>
    </message>
    <message>
        <source>the unit&apos;s event names are lost, no file holds them: %1 records</source>
        <translation>设备的事件名称将丢失，文件不保存它们：%1 条记录</translation>
    </message>
    <message>
        <source>the file has no word for the types of some of the unit&apos;s events, which follow from the commands again: %1 records</source>
        <translation>文件没有表示设备某些事件类型的文字，它们将重新由命令得出：%1 条记录</translation>
    </message>
    <message>
        <source>the unit&apos;s Modbus triggers are lost, no file holds them: %1 records</source>
        <translation>设备的 Modbus 触发将丢失，文件不保存它们：%1 条记录</translation>
    </message>
    <message>
        <source>the unit&apos;s triggers are numbered anew, no file holds their ids: %1 records</source>
        <translation>设备的触发将重新编号，文件不保存它们的编号：%1 条记录</translation>
    </message>
    <message>
        <source>the unit&apos;s time triggers are removed: %1 records</source>
        <translation>设备的定时触发将被删除：%1 条记录</translation>
    </message>
    <message>
        <source>event %1</source>
        <translation>事件 %1</translation>
    </message>
    <message>
        <source>%1: its command has more than %2 bytes</source>
        <translation>%1：命令超过 %2 个字节</translation>
    </message>
    <message>
        <source>%1: its description has more than %2 characters</source>
        <translation>%1：描述超过 %2 个字符</translation>
    </message>
    <message>
        <source>trigger %1</source>
        <translation>触发 %1</translation>
    </message>
    <message>
        <source>%1: its parameter has more than %2 bytes</source>
        <translation>%1：参数超过 %2 个字节</translation>
    </message>
    <message>
        <source>%1: it runs more than %2 events</source>
        <translation>%1：要执行的事件超过 %2 个</translation>
    </message>
    <message>
        <source>serial port %1</source>
        <translation>串口 %1</translation>
    </message>
    <message>
        <source>baud rate</source>
        <translation>波特率</translation>
    </message>
    <message>
        <source>data bits</source>
        <translation>数据位</translation>
    </message>
    <message>
        <source>stop bits</source>
        <translation>停止位</translation>
    </message>
    <message>
        <source>inspection</source>
        <translation>校验</translation>
    </message>
    <message>
        <source>IO line %1</source>
        <translation>IO 线路 %1</translation>
    </message>
    <message>
        <source>type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>id</source>
        <translation>编号</translation>
    </message>
    <message>
        <source>command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>description</source>
        <translation>描述</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>line</source>
        <translation>线路</translation>
    </message>
    <message>
        <source>parameter</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>time trigger %1</source>
        <translation>定时触发 %1</translation>
    </message>
    <message>
        <source>repeat</source>
        <translation>重复</translation>
    </message>
    <message>
        <source>from</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>until</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>weekdays</source>
        <translation>星期</translation>
    </message>
    <message>
        <source>time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>delays that are no whole number of 10 ms, up to 65530 ms, can&apos;t be written as they are: %1 records</source>
        <translation>不是 10 毫秒整数倍或超过 65530 毫秒的延时无法原样写入：%1 条记录</translation>
    </message>
    <message>
        <source>serial triggers on COM D-3 and COM D-4 read back as COM D-4 and COM A-1: %1 records</source>
        <translation>COM D-3 和 COM D-4 上的串口触发读回时成为 COM D-4 和 COM A-1：%1 条记录</translation>
    </message>
    <message>
        <source>triggers and time triggers without an event are written with the event 0: %1 records</source>
        <translation>没有事件的触发和定时触发将以事件 0 写入：%1 条记录</translation>
    </message>
    <message>
        <source>a unit has room for %1 events</source>
        <translation>设备最多容纳 %1 个事件</translation>
    </message>
    <message>
        <source>a unit has room for %1 triggers and time triggers together, not for %2</source>
        <translation>设备最多共容纳 %1 个触发和定时触发，容不下 %2 个</translation>
    </message>
    <message>
        <source>The remark of %1 was written.
</source>
        <translation>%1 的备注已写入。
</translation>
    </message>
    <message>
        <source>The unit was told to restart with its default address.
</source>
        <translation>已通知设备以默认地址重启。
</translation>
    </message>
    <message>
        <source>The unit restarts and keeps its address.
</source>
        <translation>设备正在重启，地址保持不变。
</translation>
    </message>
    <message>
        <source>interrupted</source>
        <translation>已中断</translation>
    </message>
    <message>
        <source>%1: the section &quot;%2&quot; is missing or empty</source>
        <translation>%1：“%2”部分缺失或为空</translation>
    </message>
    <message>
        <source>Upgrade of module %1 to version %2
</source>
        <translation>把模块 %1 升级到版本 %2
</translation>
    </message>
    <message>
        <source>
The unit may hold half an image. Run the upgrade again, without switching the unit off.</source>
        <translation>
设备中的映像可能不完整。请不要关闭设备电源，重新运行升级。</translation>
    </message>
    <message>
        <source>both images were sent, but the unit has not come back within %1 ms (Upgrade/timeout in configWidget.ini)</source>
        <translation>两个映像都已发送，但设备没有在 %1 毫秒（configWidget.ini 中的 Upgrade/timeout）内恢复</translation>
    </message>
    <message>
        <source>The unit is back with version %1; it was %2.
</source>
        <translation>设备已恢复，版本为 %1；原版本为 %2。
</translation>
    </message>
    <message>
        <source>%1 % sent</source>
        <translation>已发送 %1 %</translation>
    </message>
    <message>
        <source>%1: the section for &quot;%2&quot; is missing or empty</source>
        <translation>%1：“%2”所在的部分缺失或为空</translation>
    </message>
    <message>
        <source>serial ports and IO lines</source>
        <translation>串口和 IO 线路</translation>
    </message>
    <message>
        <source>triggers</source>
        <translation>触发</translation>
    </message>
    <message>
        <source>time triggers</source>
        <translation>定时触发</translation>
    </message>
    <message>
        <source>%1: %2 on the unit, %3 to be written; %4 changed, %5 added, %6 removed
</source>
        <translation>%1：设备上 %2 条，要写入 %3 条；更改 %4 条，增加 %5 条，删除 %6 条
</translation>
    </message>
    <message>
        <source>not as written: %1</source>
        <translation>与写入的不同：%1</translation>
    </message>
    <message>
        <source>the unit does not hold what was written to it</source>
        <translation>设备上的内容与写入的不同</translation>
    </message>
    <message>
        <source>--drop-time-triggers goes with the section of triggers</source>
        <translation>--drop-time-triggers 须与 triggers 部分一起使用</translation>
    </message>
    <message>
        <source>%1: the section &quot;%2&quot; is missing or empty; it is not written</source>
        <translation>%1：“%2”部分缺失或为空；不写入该部分</translation>
    </message>
    <message>
        <source>
The unit may hold some of the new records beside old ones.</source>
        <translation>
设备上可能同时有部分新记录和旧记录。</translation>
    </message>
    <message>
        <source>Written and read back: the unit holds what the file says.
</source>
        <translation>已写入并读回：设备上的内容与文件一致。
</translation>
    </message>
    <message>
        <source>Print this help and exit</source>
        <translation>显示本帮助并退出</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>用法</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>COMMAND</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>(required)</source>
        <translation>（必需）</translation>
    </message>
    <message>
        <source>a command is required</source>
        <translation>缺少命令</translation>
    </message>
    <message>
        <source>exactly one of these is required: %1</source>
        <translation>须给出以下选项中的一个，且只能有一个：%1</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>缺少 %1</translation>
    </message>
    <message>
        <source>%1: its argument is missing</source>
        <translation>%1：缺少参数</translation>
    </message>
    <message>
        <source>not expected: %1</source>
        <translation>多余的参数：%1</translation>
    </message>
    <message>
        <source>%1: %2 is none of %3</source>
        <translation>%1：%2 不在 %3 之中</translation>
    </message>
    <message>
        <source>Print the version and exit</source>
        <translation>显示版本并退出</translation>
    </message>
    <message>
        <source>The language of all texts, instead of the locale&apos;s: zh or en</source>
        <translation>所有文字的语言（代替区域设置）：zh 或 en</translation>
    </message>
    <message>
        <source>UDP port %1 of %2 is in use by another program, so no answer can be heard; end that program and search again</source>
        <translation>%2 的 UDP 端口 %1 已被另一个程序占用，无法收到应答；请结束该程序后重新查找</translation>
    </message>
    <message>
        <source>; did you mean &quot;%1&quot;?</source>
        <translation>；您是指 “%1” 吗？</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not expected here</source>
        <translation>这里不应有 “%1”</translation>
    </message>
    <message>
        <source>Run with --help for more information.</source>
        <translation>用 --help 查看更多信息。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no command</source>
        <translation>没有 “%1” 这个命令</translation>
    </message>
    <message>
        <source>a project file can&apos;t be made of these contents</source>
        <translation>这些内容无法存成工程文件</translation>
    </message>
    <message>
        <source>the disk is full; what was there before still is</source>
        <translation>磁盘已满；原来的内容保持不变</translation>
    </message>
    <message>
        <source>the folder of the file does not exist</source>
        <translation>文件所在的文件夹不存在</translation>
    </message>
    <message>
        <source>writing there is not allowed</source>
        <translation>没有在该处写入的权限</translation>
    </message>
    <message>
        <source>this is a folder; name a file in it</source>
        <translation>这是文件夹；请指定其中的文件</translation>
    </message>
    <message>
        <source>%1 %  %2 KiB/s  %3 s left</source>
        <translation>%1 %  %2 KiB/s  剩余 %3 秒</translation>
    </message>
    <message>
        <source>--unit is missing: the address of the unit, as in --unit 192.168.1.10 (&quot;quadrelctl discover&quot; lists the units of the network)</source>
        <translation>缺少 --unit：设备的地址，例如 --unit 192.168.1.10（“quadrelctl discover” 列出网络上的设备）</translation>
    </message>
    <message>
        <source>interrupts can&apos;t be watched: %1</source>
        <translation>无法监视中断信号：%1</translation>
    </message>
    <message>
        <source>
(Communication/timeout in configWidget.ini is 0: no unit can answer in that time)</source>
        <translation>
（configWidget.ini 中的 Communication/timeout 为 0：没有设备能在此时间内应答）</translation>
    </message>
    <message>
        <source>Reconnecting to the device</source>
        <translation>正在重新连接设备</translation>
    </message>
</context>
</TS>
