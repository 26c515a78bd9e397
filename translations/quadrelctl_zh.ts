<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>quadrelctl</name>
    <message>
        <source>the same as this machine&apos;s</source>
        <translation>与本机相同</translation>
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
        <source>the output can&apos;t be written</source>
        <translation>无法写出结果</translation>
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
        <source>the name of the file is empty</source>
        <translation>文件名为空</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an address of a unit: tcp://HOST:PORT or udp://HOST:PORT</source>
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
        <source>Read everything that a unit stores</source>
        <translation>读取设备保存的全部内容</translation>
    </message>
    <message>
        <source>Read the only unit that a search of the network finds</source>
        <translation>读取在网络上搜索到的唯一一台设备</translation>
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
        <source>&quot;%1&quot; is not a time of the years 2000 to 2099 in the form &quot;2026/11/14  06:05:49&quot;, with two blanks</source>
        <translation>“%1”不是 2000 至 2099 年间、形如“2026/11/14  06:05:49”（中间两个空格）的时间</translation>
    </message>
    <message>
        <source>Give a unit a fixed address</source>
        <translation>给设备设置固定地址</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an IPv4 address</source>
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
        <source>Write the remark of an image to a unit</source>
        <translation>把映像的备注写入设备</translation>
    </message>
    <message>
        <source>Find the units on the network</source>
        <translation>查找网络上的设备</translation>
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
        <source>the file can&apos;t be written; the old file is unchanged</source>
        <translation>文件无法写入；原有内容没有改变</translation>
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
        <source>%1 % sent</source>
        <translation>已发送 %1 %</translation>
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
        <source>&quot;%1&quot; is not a command</source>
        <translation>没有 “%1” 这个命令</translation>
    </message>
    <message>
        <source>the disk is full; the old file is unchanged</source>
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
        <source>There are no backups: no unit was changed from here.</source>
        <translation>没有备份：尚未从此处修改过任何设备。</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>之前的操作</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message numerus="yes">
        <source>%n day(s) %1</source>
        <translation>
            <numerusform>%n 天 %1</numerusform>
        </translation>
    </message>
    <message>
        <source>The clock says %1.</source>
        <translation>时钟显示 %1。</translation>
    </message>
    <message>
        <source>Set it to the time of this machine?</source>
        <translation>设为本机时间？</translation>
    </message>
    <message>
        <source>Set it to %1?</source>
        <translation>设为 %1？</translation>
    </message>
    <message>
        <source>there is no terminal to ask on, and nothing was sent; --yes goes on without asking, --dry-run shows what would be done</source>
        <translation>没有可供询问的终端，未发送任何内容；--yes 不询问直接执行，--dry-run 只显示将要做的事</translation>
    </message>
    <message>
        <source>Dry run: nothing was changed.</source>
        <translation>试运行：未作任何修改。</translation>
    </message>
    <message>
        <source>high level</source>
        <translation>高电平</translation>
    </message>
    <message>
        <source>low level</source>
        <translation>低电平</translation>
    </message>
    <message>
        <source>serial</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>Modbus</source>
        <translation>Modbus</translation>
    </message>
    <message>
        <source>input</source>
        <translation>输入</translation>
    </message>
    <message>
        <source>every day</source>
        <translation>每天</translation>
    </message>
    <message>
        <source>weekly</source>
        <translation>每周</translation>
    </message>
    <message>
        <source>once</source>
        <translation>一次</translation>
    </message>
    <message>
        <source>Mon</source>
        <translation>周一</translation>
    </message>
    <message>
        <source>Tue</source>
        <translation>周二</translation>
    </message>
    <message>
        <source>Wed</source>
        <translation>周三</translation>
    </message>
    <message>
        <source>Thu</source>
        <translation>周四</translation>
    </message>
    <message>
        <source>Fri</source>
        <translation>周五</translation>
    </message>
    <message>
        <source>Sat</source>
        <translation>周六</translation>
    </message>
    <message>
        <source>Sun</source>
        <translation>周日</translation>
    </message>
    <message>
        <source>forever</source>
        <translation>永久</translation>
    </message>
    <message>
        <source>wait %1 ms</source>
        <translation>等待 %1 毫秒</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither a file nor the name or address of a unit</source>
        <translation>“%1” 既不是文件，也不是设备的名称或地址</translation>
    </message>
    <message>
        <source>%1  (model %2, serial number %3, version %4)</source>
        <translation>%1  （型号 %2，序列号 %3，版本 %4）</translation>
    </message>
    <message>
        <source>not compared, since one side does not have them: %1</source>
        <translation>未比较（其中一方没有）：%1</translation>
    </message>
    <message>
        <source>nothing was changed: the text still has errors. It is in %1</source>
        <translation>未作任何修改：文本仍有错误。文本保存在 %1</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>未作任何修改。</translation>
    </message>
    <message>
        <source>
The text is in %1</source>
        <translation>
文本保存在 %1</translation>
    </message>
    <message>
        <source>the editor &quot;%1&quot; has failed, and nothing was changed; set EDITOR to another one. The text is in %2</source>
        <translation>编辑器 “%1” 出错，未作任何修改；请把 EDITOR 设为其他编辑器。文本保存在 %2</translation>
    </message>
    <message>
        <source>%1: a project file can&apos;t be made of this</source>
        <translation>%1：无法生成工程文件</translation>
    </message>
    <message>
        <source>%1: the name must end in .yaml, .json or .xml</source>
        <translation>%1：文件名必须以 .yaml、.json 或 .xml 结尾</translation>
    </message>
    <message>
        <source>
Nothing was sent; --force sends them nevertheless.</source>
        <translation>
未发送任何内容；--force 可强制继续。</translation>
    </message>
    <message>
        <source>The unit may have either address; &quot;quadrelctl discover&quot; shows which.</source>
        <translation>设备可能使用新旧任一地址；用 “quadrelctl discover” 查看。</translation>
    </message>
    <message>
        <source>The unit has taken the address %1.</source>
        <translation>设备已使用地址 %1。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number from %2 to %3</source>
        <translation>“%1” 不是 %2 到 %3 之间的数字</translation>
    </message>
    <message>
        <source>The unit: its name in the settings, or its address as in tcp://192.168.1.10:3801</source>
        <translation>设备：设置中的名称，或地址，例如 tcp://192.168.1.10:3801</translation>
    </message>
    <message>
        <source>Show what would be done, and change nothing</source>
        <translation>只显示将要做的事，不作修改</translation>
    </message>
    <message>
        <source>Options of every command: --timeout, --retries, --log, --quiet, --yes, --no-pager, --language; see quadrelctl --help

Examples:</source>
        <translation>所有命令的选项：--timeout、--retries、--log、--quiet、--yes、--no-pager、--language；见 quadrelctl --help

示例：</translation>
    </message>
    <message>
        <source>Show and save only these sections: %1</source>
        <translation>只显示并保存这些部分：%1</translation>
    </message>
    <message>
        <source>Save to a document, .yaml or .json, or to a project file, .xml</source>
        <translation>保存为文档（.yaml 或 .json）或工程文件（.xml）</translation>
    </message>
    <message>
        <source>Show what a file holds</source>
        <translation>显示文件内容</translation>
    </message>
    <message>
        <source>A document or a project file</source>
        <translation>文档或工程文件</translation>
    </message>
    <message>
        <source>Look for mistakes in files</source>
        <translation>检查文件中的错误</translation>
    </message>
    <message>
        <source>Documents and project files</source>
        <translation>文档和工程文件</translation>
    </message>
    <message>
        <source>Save a file in another form, by the ending of its name</source>
        <translation>按文件名后缀把文件存成另一种格式</translation>
    </message>
    <message>
        <source>A name that ends in .yaml, .json or .xml</source>
        <translation>以 .yaml、.json 或 .xml 结尾的文件名</translation>
    </message>
    <message>
        <source>Compare two files or units; exit code 0 if they are the same, 1 if not</source>
        <translation>比较两个文件或设备；相同时退出码为 0，不同时为 1</translation>
    </message>
    <message>
        <source>A file, or a unit&apos;s name or address</source>
        <translation>文件，或设备的名称或地址</translation>
    </message>
    <message>
        <source>Write a file to a unit, and read it back</source>
        <translation>把文件写入设备并回读</translation>
    </message>
    <message>
        <source>Write only these sections: %1</source>
        <translation>只写入这些部分：%1</translation>
    </message>
    <message>
        <source>Write what another unit holds; address, serial number and model stay</source>
        <translation>写入另一台设备的内容；地址、序列号和型号不变</translation>
    </message>
    <message>
        <source>FILE or --unit</source>
        <translation>FILE 或 --unit</translation>
    </message>
    <message>
        <source>a path</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>Change single values of a file or a unit</source>
        <translation>修改文件或设备中的单个值</translation>
    </message>
    <message>
        <source>FILE unless there is --unit; then PATH=VALUE</source>
        <translation>没有 --unit 时先写 FILE；然后是 PATH=VALUE</translation>
    </message>
    <message>
        <source>Print single values of a file or a unit</source>
        <translation>打印文件或设备中的单个值</translation>
    </message>
    <message>
        <source>FILE unless there is --unit; then PATH</source>
        <translation>没有 --unit 时先写 FILE；然后是 PATH</translation>
    </message>
    <message>
        <source>Remove single records or values of a file or a unit</source>
        <translation>删除文件或设备中的单个记录或值</translation>
    </message>
    <message>
        <source>Edit a file or what a unit holds, in $VISUAL or $EDITOR</source>
        <translation>用 $VISUAL 或 $EDITOR 编辑文件或设备内容</translation>
    </message>
    <message>
        <source>Undo the last change to a unit from this computer</source>
        <translation>恢复设备在上次从此处修改之前的内容</translation>
    </message>
    <message>
        <source>List the backups that were made before changes</source>
        <translation>列出修改前保存的设备备份</translation>
    </message>
    <message>
        <source>Only those of the unit with this serial number</source>
        <translation>只列出该序列号的设备</translation>
    </message>
    <message>
        <source>The upgrade&apos;s descriptor; model and version are compared with the unit&apos;s</source>
        <translation>升级说明文件；其中的型号和版本会与设备比较</translation>
    </message>
    <message>
        <source>Accept files that look wrong, or the version that is installed</source>
        <translation>即使文件看起来不对，或版本与已安装的相同，也继续</translation>
    </message>
    <message>
        <source>Print the address of the first unit that answers, and end</source>
        <translation>打印第一台应答设备的地址后结束</translation>
    </message>
    <message>
        <source>How long a unit has for one answer, in milliseconds; for discover how long it searches</source>
        <translation>每次应答的时限（毫秒）；对 discover 是查找的时长</translation>
    </message>
    <message>
        <source>How often a request without an answer is repeated</source>
        <translation>没有应答的请求重复多少次</translation>
    </message>
    <message>
        <source>Log each frame to a file; - is standard error</source>
        <translation>把每一帧记录到文件；- 表示标准错误</translation>
    </message>
    <message>
        <source>Show only results, warnings and errors</source>
        <translation>只显示结果、警告和错误</translation>
    </message>
    <message>
        <source>Do not show long output in a pager</source>
        <translation>不用分页程序显示长输出</translation>
    </message>
    <message>
        <source>Write the remark of %1 to %2?</source>
        <translation>把 %1 的备注写入 %2？</translation>
    </message>
    <message>
        <source>The remark of %1 was written.</source>
        <translation>已写入 %1 的备注。</translation>
    </message>
    <message>
        <source>The unit restarts, and goes back from %1 to its default address.</source>
        <translation>设备将重启，并从 %1 恢复为默认地址。</translation>
    </message>
    <message>
        <source>Restart it with its default address?</source>
        <translation>以默认地址重启？</translation>
    </message>
    <message>
        <source>The unit would restart, and keep the address %1.</source>
        <translation>设备将会重启，并保留地址 %1。</translation>
    </message>
    <message>
        <source>The unit was asked to restart with its default address.</source>
        <translation>已通知设备以默认地址重启。</translation>
    </message>
    <message>
        <source>The unit restarts and keeps its address.</source>
        <translation>设备正在重启，地址不变。</translation>
    </message>
    <message>
        <source>%1: nothing to undo: the unit with serial number %2 was not changed from here</source>
        <translation>%1：没有可撤销的操作：尚未从此处修改过序列号为 %2 的设备</translation>
    </message>
    <message>
        <source>Back to what was before &quot;%1&quot;, from %2</source>
        <translation>恢复到 “%1” 之前的内容，来自 %2</translation>
    </message>
    <message>
        <source>The unit holds all of this already; nothing is written.</source>
        <translation>设备已有全部内容；不写入。</translation>
    </message>
    <message numerus="yes">
        <source>Write %n change(s) to %1?</source>
        <translation>
            <numerusform>把 %n 处修改写入 %1？</numerusform>
        </translation>
    </message>
    <message>
        <source>Written and read back. &quot;quadrelctl undo --unit %1&quot; takes it back.</source>
        <translation>已写入并回读。用 “quadrelctl undo --unit %1” 可撤销。</translation>
    </message>
    <message numerus="yes">
        <source>%1, %n byte(s)</source>
        <translation>
            <numerusform>%1，%n 字节</numerusform>
        </translation>
    </message>
    <message>
        <source>New version</source>
        <translation>新版本</translation>
    </message>
    <message>
        <source>Streamed image</source>
        <translation>流式映像</translation>
    </message>
    <message>
        <source>Addressed image</source>
        <translation>寻址映像</translation>
    </message>
    <message>
        <source>Replace the unit&apos;s firmware?</source>
        <translation>更换设备固件？</translation>
    </message>
    <message>
        <source>The unit is back with version %1; it was %2.</source>
        <translation>设备已恢复，版本为 %1；之前是 %2。</translation>
    </message>
    <message>
        <source>Communication/timeout in configWidget.ini is 0, and no unit can answer in that time</source>
        <translation>configWidget.ini 中的 Communication/timeout 为 0，设备不可能在此时间内应答</translation>
    </message>
    <message>
        <source>Show who a unit is, its clock, and whether it holds what a file says</source>
        <translation>显示设备的身份、时钟，以及内容是否与文件一致</translation>
    </message>
    <message>
        <source>Save what a unit holds; a file that says the same stays as it is</source>
        <translation>保存设备的内容；内容相同的文件保持原样</translation>
    </message>
    <message>
        <source>The serial number that the unit must have; another unit is a failure</source>
        <translation>设备必须具有的序列号；不是该设备即为失败</translation>
    </message>
    <message>
        <source>The model that the unit must be of, as in 0x7209</source>
        <translation>设备必须具有的型号，例如 0x7209</translation>
    </message>
    <message>
        <source>%1: written</source>
        <translation>%1：已写入</translation>
    </message>
    <message>
        <source>%1: the same as before</source>
        <translation>%1：与之前相同</translation>
    </message>
    <message>
        <source>Write this to %1?</source>
        <translation>将此写入 %1 吗？</translation>
    </message>
    <message>
        <source>%1: the inventory names no document; name one, or leave the unit out with --exclude</source>
        <translation>%1：清单中没有给出文档；请给出一个，或用 --exclude 排除该设备</translation>
    </message>
    <message>
        <source>
Nothing was sent to any unit.</source>
        <translation>
未向任何设备发送内容。</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>标签</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>The inventory of the site, site.yaml unless it is given</source>
        <translation>场地的清单，不给出时为 site.yaml</translation>
    </message>
    <message>
        <source>Only units with one of these tags</source>
        <translation>只处理带有这些标签之一的设备</translation>
    </message>
    <message>
        <source>Only units with such a name, as in &apos;hall-*&apos;</source>
        <translation>只处理具有这种名称的设备，例如 &apos;hall-*&apos;</translation>
    </message>
    <message>
        <source>Without units with such a name</source>
        <translation>不处理具有这种名称的设备</translation>
    </message>
    <message>
        <source>How many units at a time; 16 unless the inventory says it</source>
        <translation>同时处理多少台设备；清单未给出时为 16</translation>
    </message>
    <message>
        <source>How long a unit may take in all; 600 seconds if not given</source>
        <translation>每台设备总共可用的时间；不给出时为 600 秒</translation>
    </message>
    <message>
        <source>Add a unit to the inventory</source>
        <translation>将设备加入清单</translation>
    </message>
    <message>
        <source>The unit&apos;s name</source>
        <translation>设备的名称</translation>
    </message>
    <message>
        <source>The unit&apos;s address, as in tcp://192.168.1.21:3801</source>
        <translation>设备的地址，例如 tcp://192.168.1.21:3801</translation>
    </message>
    <message>
        <source>The unit&apos;s serial number</source>
        <translation>设备的序列号</translation>
    </message>
    <message>
        <source>The unit&apos;s model, as in 0x7209</source>
        <translation>设备的型号，例如 0x7209</translation>
    </message>
    <message>
        <source>Ask the unit for its serial number and model</source>
        <translation>向设备询问其序列号和型号</translation>
    </message>
    <message>
        <source>The unit&apos;s tags</source>
        <translation>设备的标签</translation>
    </message>
    <message>
        <source>The document with the wanted contents</source>
        <translation>包含所需内容的文档</translation>
    </message>
    <message>
        <source>Remove units from the inventory</source>
        <translation>从清单中移除设备</translation>
    </message>
    <message>
        <source>Names of units, in which * and ? are any letters</source>
        <translation>设备的名称，其中 * 和 ? 代表任意字符</translation>
    </message>
    <message>
        <source>a name, or --tag</source>
        <translation>名称或 --tag</translation>
    </message>
    <message>
        <source>List the units of the inventory</source>
        <translation>列出清单中的设备</translation>
    </message>
    <message>
        <source>Show who answers, models, versions, clocks, and who differs from its document</source>
        <translation>显示哪些设备有应答、型号、版本、时钟，以及哪些与其文档不同</translation>
    </message>
    <message>
        <source>Look for mistakes in the documents, also against the inventory</source>
        <translation>检查文档中的错误，并与清单核对</translation>
    </message>
    <message>
        <source>Work with the many units of a site</source>
        <translation>处理一个场地的众多设备</translation>
    </message>
    <message>
        <source>stage %1 of %2</source>
        <translation>第 %1 阶段，共 %2 阶段</translation>
    </message>
    <message>
        <source>%1 of %2 units</source>
        <translation>%1/%2 台设备</translation>
    </message>
    <message numerus="yes">
        <source>, %n failed</source>
        <translation>
            <numerusform>，%n 台失败</numerusform>
        </translation>
    </message>
    <message>
        <source>, %1 units/s, %2 s left</source>
        <translation>，每秒 %1 台，剩余 %2 秒</translation>
    </message>
    <message>
        <source>answers</source>
        <translation>有应答</translation>
    </message>
    <message>
        <source>done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>valid</source>
        <translation>有效</translation>
    </message>
    <message>
        <source>no document</source>
        <translation>没有文档</translation>
    </message>
    <message>
        <source>saved</source>
        <translation>已保存</translation>
    </message>
    <message>
        <source>unchanged</source>
        <translation>未变</translation>
    </message>
    <message>
        <source>same</source>
        <translation>相同</translation>
    </message>
    <message>
        <source>differs</source>
        <translation>不同</translation>
    </message>
    <message>
        <source>planned</source>
        <translation>待写入</translation>
    </message>
    <message>
        <source>written</source>
        <translation>已写入</translation>
    </message>
    <message>
        <source>upgraded</source>
        <translation>已升级</translation>
    </message>
    <message>
        <source>verified</source>
        <translation>已核实</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>not begun</source>
        <translation>未开始</translation>
    </message>
    <message numerus="yes">
        <source> and %n more</source>
        <translation>
            <numerusform> 等另外 %n 台</numerusform>
        </translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>台数</translation>
    </message>
    <message>
        <source>Names</source>
        <translation>名称</translation>
    </message>
    <message numerus="yes">
        <source>, %n change(s)</source>
        <translation>
            <numerusform>，%n 处更改</numerusform>
        </translation>
    </message>
    <message>
        <source>missing</source>
        <translation>缺失</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s)</source>
        <translation>
            <numerusform>%n 处更改</numerusform>
        </translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>时钟</translation>
    </message>
    <message>
        <source>--log is for one unit; &quot;quadrelctl --log FILE read --unit UNIT&quot; logs it</source>
        <translation>--log 只用于一台设备；请用 &quot;quadrelctl --log FILE read --unit UNIT&quot;</translation>
    </message>
    <message>
        <source>interrupted: units at work go on to their end and no other is begun; a second interrupt ends them too</source>
        <translation>已中断：正在处理的设备继续到完成，不再开始其他设备；再次中断将结束它们</translation>
    </message>
    <message>
        <source>interrupted again: the units at work are being ended</source>
        <translation>再次中断：正在结束处理中的设备</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>the same as in %1</source>
        <translation>与 %1 相同</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) from %1</source>
        <translation>
            <numerusform>与 %1 有 %n 处更改</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: the folder can&apos;t be made</source>
        <translation>%1：无法建立文件夹</translation>
    </message>
    <message>
        <source>%1
The documents are saved, and not committed.</source>
        <translation>%1
文档已保存，但未提交。</translation>
    </message>
    <message>
        <source>Nothing has changed since the last commit.</source>
        <translation>自上次提交以来没有变化。</translation>
    </message>
    <message>
        <source>Committed: %1</source>
        <translation>已提交：%1</translation>
    </message>
    <message numerus="yes">
        <source>Set the clocks of %n unit(s)?</source>
        <translation>
            <numerusform>设置 %n 台设备的时钟吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>What</source>
        <translation>情况</translation>
    </message>
    <message>
        <source>new</source>
        <translation>新增</translation>
    </message>
    <message>
        <source>moved</source>
        <translation>已移动</translation>
    </message>
    <message>
        <source>replaced</source>
        <translation>已更换</translation>
    </message>
    <message>
        <source>vanished</source>
        <translation>已消失</translation>
    </message>
    <message>
        <source>The inventory has all units that answered, and no other.</source>
        <translation>清单与有应答的设备完全一致。</translation>
    </message>
    <message>
        <source>Another unit is at the address of a replaced one: change its serial number in the inventory if that is right.</source>
        <translation>已更换设备的地址上是另一台设备：如果正确，请在清单中更改其序列号。</translation>
    </message>
    <message>
        <source>Search the network and compare what is there with the inventory; exit code 3 if they differ</source>
        <translation>搜索网络并与清单比较；有差异时退出码为 3</translation>
    </message>
    <message>
        <source>Write new units and moved addresses to the inventory, after showing them</source>
        <translation>显示后将新设备和变动的地址写入清单</translation>
    </message>
    <message>
        <source>Save what each unit holds; only documents that change are written</source>
        <translation>保存每台设备的内容；只写入有变化的文档</translation>
    </message>
    <message>
        <source>The folder of the documents, NAME.yaml for each unit</source>
        <translation>存放文档的文件夹，每台设备一个 NAME.yaml</translation>
    </message>
    <message>
        <source>Commit the documents that have changed with git</source>
        <translation>用 git 提交有变化的文档</translation>
    </message>
    <message>
        <source>Compare units with their documents; exit code 3 if some differ</source>
        <translation>将设备与其文档比较；有不同时退出码为 3</translation>
    </message>
    <message>
        <source>A folder with NAME.yaml for each unit; the wanted documents if it is not given</source>
        <translation>每台设备有 NAME.yaml 的文件夹；不给出时为所需内容的文档</translation>
    </message>
    <message>
        <source>Set the units&apos; clocks</source>
        <translation>设置设备的时钟</translation>
    </message>
    <message>
        <source>Paths in the documents</source>
        <translation>文档中的路径</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a command for a unit</source>
        <translation>&quot;%1&quot; 不是用于设备的命令</translation>
    </message>
    <message>
        <source>the command gets each unit; leave --unit out</source>
        <translation>命令会得到每台设备；请去掉 --unit</translation>
    </message>
    <message>
        <source>Run another command for each unit</source>
        <translation>对每台设备运行另一个命令</translation>
    </message>
    <message>
        <source>&quot;--&quot; and a command without --unit, in which {name} and {document} are the unit&apos;s</source>
        <translation>&quot;--&quot; 和不带 --unit 的命令，其中 {name} 和 {document} 为设备自己的</translation>
    </message>
    <message>
        <source>So many units are tried first</source>
        <translation>先试这么多台设备</translation>
    </message>
    <message>
        <source>So many units follow at a time; all of them if not given</source>
        <translation>之后每批这么多台设备；不给出时为全部</translation>
    </message>
    <message>
        <source>Begin no further unit when more than so many failed; 0 if not given</source>
        <translation>失败超过这么多台时不再开始其他设备；不给出时为 0</translation>
    </message>
    <message>
        <source>Go on with a run that stopped; what is done is verified and not done again</source>
        <translation>继续已停止的运行；已完成的只核实，不重做</translation>
    </message>
    <message>
        <source>Write each unit&apos;s document to it, in stages</source>
        <translation>分阶段将文档写入各台设备</translation>
    </message>
    <message>
        <source>Replace the units&apos; firmware, in stages</source>
        <translation>分阶段更换设备的固件</translation>
    </message>
    <message>
        <source>Change single values in all documents</source>
        <translation>更改所有文档中的单个值</translation>
    </message>
    <message>
        <source>Remove single records or values in all documents</source>
        <translation>移除所有文档中的单个记录或值</translation>
    </message>
    <message>
        <source>%1: there is no such file, so no run to go on with; leave --resume out</source>
        <translation>%1：没有这个文件，因此没有可继续的运行；请去掉 --resume</translation>
    </message>
    <message>
        <source>%1: the run has the unit %2, and %3 does not; add it again, or start again without --resume</source>
        <translation>%1：该运行中有设备 %2，而 %3 中没有；请重新加入，或不用 --resume 重新开始</translation>
    </message>
    <message>
        <source>planning</source>
        <translation>计划</translation>
    </message>
    <message>
        <source>%1 is left from a run that stopped, with %2 of %3 units done; it is replaced now, and --resume would go on with it</source>
        <translation>%1 是已停止的运行留下的，%3 台设备中已完成 %2 台；现在将被替换，用 --resume 可以继续该运行</translation>
    </message>
    <message>
        <source>Change %1 of %2 units</source>
        <translation>更改 %2 台设备中的 %1 台</translation>
    </message>
    <message>
        <source>Write %1 changes to %2 of %3 units</source>
        <translation>向 %3 台设备中的 %2 台写入 %1 处更改</translation>
    </message>
    <message>
        <source>, %1 first</source>
        <translation>，先写 %1 台</translation>
    </message>
    <message>
        <source>, %1 at a time</source>
        <translation>，每批 %1 台</translation>
    </message>
    <message numerus="yes">
        <source>%n unit(s) failed before anything was sent, and --max-failures allows %1: no unit was changed</source>
        <translation>
            <numerusform>发送任何内容之前已有 %n 台设备失败，而 --max-failures 允许 %1 台：未更改任何设备</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2
The state of the run can&apos;t be kept; nothing was sent to any unit.</source>
        <translation>%1：%2
无法保存运行的状态；未向任何设备发送内容。</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>the new</source>
        <translation>新</translation>
    </message>
    <message>
        <source>the old</source>
        <translation>旧</translation>
    </message>
    <message>
        <source>not known, perhaps some of both</source>
        <translation>未知，可能部分新部分旧</translation>
    </message>
    <message>
        <source>%1 says how far the run has come; &quot;quadrelctl site %2 --resume&quot; goes on with it, with the same options</source>
        <translation>%1 记录了运行的进度；用 &quot;quadrelctl site %2 --resume&quot; 和相同的选项继续</translation>
    </message>
    <message>
        <source>--resume goes on with the units of the run; leave --tag, --name and --exclude out</source>
        <translation>--resume 继续处理该运行的设备；请去掉 --tag、--name 和 --exclude</translation>
    </message>
    <message numerus="yes">
        <source>Run &quot;%1&quot; on %n unit(s)?</source>
        <translation>
            <numerusform>对 %n 台设备运行 &quot;%1&quot; 吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>
No document was changed.</source>
        <translation>
未更改任何文档。</translation>
    </message>
    <message>
        <source>the run has upgraded it to version %1, and it has %2 now; start again without --resume to upgrade it again</source>
        <translation>该运行已将其升级到版本 %1，现在却是 %2；要再次升级请不用 --resume 重新开始</translation>
    </message>
    <message numerus="yes">
        <source>the run has written its document, and the unit holds something else now, with %n change(s); start again without --resume to write it again</source>
        <translation>
            <numerusform>该运行已写入其文档，但设备现在的内容不同，有 %n 处更改；要再次写入请不用 --resume 重新开始</numerusform>
        </translation>
    </message>
</context>
</TS>
