<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>BytesEditor</name>
    <message>
        <source>Hexadecimal digits</source>
        <translation>十六进制数字</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>He&amp;x</source>
        <translation>十六进制(&amp;X)</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>文本(&amp;T)</translation>
    </message>
    <message>
        <source>The digit at place %1 needs a second one.</source>
        <translation>第 %1 位的数字还缺一位。</translation>
    </message>
    <message>
        <source>“%1” at place %2 is no hexadecimal digit; 0 to 9 and A to F are allowed.</source>
        <translation>第 %2 位的“%1”不是十六进制数字；允许 0 到 9 和 A 到 F。</translation>
    </message>
    <message>
        <source>The backslash at place %1 begins no escape; \\ \r \n \t \0 and \xHH are allowed.</source>
        <translation>第 %1 位的反斜杠不是转义序列的开头；允许 \\ \r \n \t \0 和 \xHH。</translation>
    </message>
    <message>
        <source>“%1” at place %2 is more than one byte; type its bytes as hexadecimal digits.</source>
        <translation>第 %2 位的“%1”多于一个字节；请用十六进制数字输入各字节。</translation>
    </message>
    <message>
        <source>%1 of %2 bytes, %3 left</source>
        <translation>%1 / %2 字节，剩余 %3</translation>
    </message>
    <message>
        <source>%1 of %2 bytes: %3 too many</source>
        <translation>%1 / %2 字节，超出 %3</translation>
    </message>
</context>
<context>
    <name>CellDelegate</name>
    <message>
        <source>unfinished: %1</source>
        <translation>未完成：%1</translation>
    </message>
</context>
<context>
    <name>Cells</name>
    <message>
        <source>For ever</source>
        <translation>永久</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 毫秒</translation>
    </message>
</context>
<context>
    <name>ChoiceEditor</name>
    <message>
        <source>Choices</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>数字</translation>
    </message>
    <message>
        <source>“%1” is no number from %2 to %3.</source>
        <translation>“%1”不是 %2 到 %3 之间的数字。</translation>
    </message>
</context>
<context>
    <name>Choices</name>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>High</source>
        <translation>高</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>低</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>Modbus</source>
        <translation>Modbus</translation>
    </message>
    <message>
        <source>IO</source>
        <translation>IO</translation>
    </message>
    <message>
        <source>Every day</source>
        <translation>每天</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>每周</translation>
    </message>
    <message>
        <source>Once</source>
        <translation>一次</translation>
    </message>
</context>
<context>
    <name>Columns</name>
    <message>
        <source>Port</source>
        <translation>端口</translation>
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
        <source>Parity</source>
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
        <source>Description</source>
        <translation>描述</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>延时</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Waits for</source>
        <translation>等待</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>重复</translation>
    </message>
    <message>
        <source>Weekdays</source>
        <translation>星期</translation>
    </message>
    <message>
        <source>From</source>
        <translation>从</translation>
    </message>
    <message>
        <source>Until</source>
        <translation>到</translation>
    </message>
</context>
<context>
    <name>ComparisonPage</name>
    <message>
        <source>the unit, as it was read last</source>
        <translation>设备上次读取的内容</translation>
    </message>
    <message>
        <source>backup of %1, before &quot;%2&quot;</source>
        <translation>%1 的备份，“%2”之前</translation>
    </message>
    <message>
        <source>Compare with a document</source>
        <translation>与文档比较</translation>
    </message>
    <message>
        <source>Unit documents (*.yaml *.yml *.json *.xml);;All files (*)</source>
        <translation>设备文档 (*.yaml *.yml *.json *.xml);;所有文件 (*)</translation>
    </message>
    <message>
        <source>There is nothing to compare with yet. Read the unit, open another document, or choose a file.</source>
        <translation>还没有可比较的内容。请读取设备、打开另一个文档或选择一个文件。</translation>
    </message>
    <message>
        <source>Both hold the same.</source>
        <translation>两者内容相同。</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) lead from these contents to the others. Take the checked ones over, or leave them.</source>
        <translation>
            <numerusform>从当前内容到对方有 %n 处更改。可接受勾选的更改，或保持不变。</numerusform>
        </translation>
    </message>
    <message>
        <source>Take changes of %1</source>
        <translation>接受 %1 的更改</translation>
    </message>
    <message>
        <source>Compare with</source>
        <translation>比较对象</translation>
    </message>
    <message>
        <source>File...</source>
        <translation>文件...</translation>
    </message>
    <message>
        <source>Check all</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Check none</source>
        <translation>全不选</translation>
    </message>
    <message>
        <source>Take checked changes</source>
        <translation>接受勾选的更改</translation>
    </message>
</context>
<context>
    <name>DateEditor</name>
    <message>
        <source>for&amp;ever</source>
        <translation>永久(&amp;E)</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Forever</source>
        <translation>永久</translation>
    </message>
    <message>
        <source>not “%1”</source>
        <translation>并非“%1”</translation>
    </message>
</context>
<context>
    <name>DateRangeEditor</name>
    <message>
        <source>Fro&amp;m</source>
        <translation>从(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Until</source>
        <translation>到(&amp;U)</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>第一天</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>最后一天</translation>
    </message>
    <message>
        <source>It ends before it begins, and never fires.</source>
        <translation>结束早于开始，永不触发。</translation>
    </message>
    <message numerus="yes">
        <source>%n day(s)</source>
        <translation>
            <numerusform>%n 天</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DelayEditor</name>
    <message>
        <source>ms</source>
        <translation>毫秒</translation>
    </message>
    <message>
        <source>s</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>min</source>
        <translation>分钟</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>延时</translation>
    </message>
    <message>
        <source>Unit of time</source>
        <translation>时间单位</translation>
    </message>
    <message>
        <source>0 to %1 ms</source>
        <translation>0 到 %1 毫秒</translation>
    </message>
</context>
<context>
    <name>DifferenceTree</name>
    <message>
        <source>added</source>
        <translation>已添加</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>已删除</translation>
    </message>
    <message>
        <source>moved</source>
        <translation>已移动</translation>
    </message>
    <message>
        <source>changed and moved</source>
        <translation>已更改并移动</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>已更改</translation>
    </message>
    <message>
        <source>What</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>之前</translation>
    </message>
    <message>
        <source>After</source>
        <translation>之后</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>差异</translation>
    </message>
</context>
<context>
    <name>EventNames</name>
    <message>
        <source>%1 (missing)</source>
        <translation>%1（缺失）</translation>
    </message>
</context>
<context>
    <name>EventPicker</name>
    <message>
        <source>Search by number or name</source>
        <translation>按编号或名称搜索</translation>
    </message>
    <message>
        <source>Search for events</source>
        <translation>搜索事件</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Chosen events, in the order in which they run</source>
        <translation>所选事件，按执行顺序</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>添加(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>移除(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Up</source>
        <translation>上移(&amp;U)</translation>
    </message>
    <message>
        <source>D&amp;own</source>
        <translation>下移(&amp;O)</translation>
    </message>
    <message>
        <source>Add the event</source>
        <translation>添加该事件</translation>
    </message>
    <message>
        <source>Take the event out</source>
        <translation>移除该事件</translation>
    </message>
    <message>
        <source>Run the event earlier</source>
        <translation>提前执行该事件</translation>
    </message>
    <message>
        <source>Run the event later</source>
        <translation>推后执行该事件</translation>
    </message>
    <message numerus="yes">
        <source>%n too many</source>
        <comment>events</comment>
        <translation>
            <numerusform>超出 %n</numerusform>
        </translation>
    </message>
    <message>
        <source>Chosen</source>
        <translation>已选</translation>
    </message>
    <message numerus="yes">
        <source>%n chosen, in this order</source>
        <comment>events</comment>
        <translation>
            <numerusform>已选 %n 个，按此顺序</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FindingsList</name>
    <message numerus="yes">
        <source>%n error(s)</source>
        <translation>
            <numerusform>%n 个错误</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation>
            <numerusform>%n 个警告</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n note(s)</source>
        <translation>
            <numerusform>%n 个提示</numerusform>
        </translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>检查结果</translation>
    </message>
    <message>
        <source>Nothing is wrong.</source>
        <translation>没有问题。</translation>
    </message>
</context>
<context>
    <name>FindingsModel</name>
    <message>
        <source>Where</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation>问题</translation>
    </message>
</context>
<context>
    <name>FirmwarePage</name>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Replace the firmware of %1? The unit has version %2, and restarts afterwards.</source>
        <translation>替换 %1 的固件？设备当前版本为 %2，完成后将重启。</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>选择...</translation>
    </message>
    <message>
        <source>Choose: %1</source>
        <translation>选择：%1</translation>
    </message>
    <message>
        <source>Both images are written, then the unit restarts. With a descriptor, model and version are compared first. Read the unit before.</source>
        <translation>写入两个镜像后设备重启。若有描述文件，会先比较型号和版本。请先读取设备。</translation>
    </message>
    <message>
        <source>Streamed image</source>
        <translation>流式镜像</translation>
    </message>
    <message>
        <source>Addressed image</source>
        <translation>寻址镜像</translation>
    </message>
    <message>
        <source>Descriptor (optional)</source>
        <translation>描述文件（可选）</translation>
    </message>
    <message>
        <source>Replace the firmware...</source>
        <translation>替换固件...</translation>
    </message>
</context>
<context>
    <name>LogFiles</name>
    <message>
        <source>%1: this is the log itself; choose another name.</source>
        <translation>%1：这就是日志本身；请另选名称。</translation>
    </message>
</context>
<context>
    <name>LogPage</name>
    <message>
        <source>Logs (*.log);;All files (*)</source>
        <translation>日志 (*.log);;所有文件 (*)</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>帧</translation>
    </message>
    <message>
        <source>Lines &amp;with</source>
        <translation>包含此文本的行(&amp;W)</translation>
    </message>
    <message>
        <source>an address, “write”, the name of a place …</source>
        <translation>地址、“write”、位置名称……</translation>
    </message>
    <message>
        <source>Show only lines with this text</source>
        <translation>只显示包含此文本的行</translation>
    </message>
    <message>
        <source>&amp;Follow</source>
        <translation>跟随(&amp;F)</translation>
    </message>
    <message>
        <source>Keeps the newest line in view</source>
        <translation>始终显示最新的行</translation>
    </message>
    <message>
        <source>Follow the newest line</source>
        <translation>跟随最新的行</translation>
    </message>
    <message>
        <source>&amp;Save for support…</source>
        <translation>保存以供支持(&amp;S)…</translation>
    </message>
    <message>
        <source>Save the whole log for support</source>
        <translation>保存整个日志以供支持</translation>
    </message>
    <message>
        <source>State of the log</source>
        <translation>日志状态</translation>
    </message>
    <message numerus="yes">
        <source>%n line(s)</source>
        <translation>
            <numerusform>%n 行</numerusform>
        </translation>
    </message>
    <message>
        <source>older lines are in the file only</source>
        <translation>更早的行只在文件中</translation>
    </message>
    <message>
        <source>some lines could not be written</source>
        <translation>有些行无法写入</translation>
    </message>
    <message>
        <source>Save the log for support</source>
        <translation>保存日志以供支持</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>busy</source>
        <translation>忙</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>已更改</translation>
    </message>
    <message>
        <source>differs</source>
        <translation>不一致</translation>
    </message>
    <message>
        <source>read</source>
        <translation>已读取</translation>
    </message>
    <message>
        <source>%1 was changed by another program. &quot;Read the file again&quot; in the File menu shows what is in it now.</source>
        <translation>%1 已被其他程序更改。使用“文件”菜单中的“重新读取文件”查看当前内容。</translation>
    </message>
    <message>
        <source>The document can&apos;t be opened</source>
        <translation>无法打开文档</translation>
    </message>
    <message>
        <source>Open documents</source>
        <translation>打开文档</translation>
    </message>
    <message>
        <source>Unit documents (*.yaml *.yml *.json *.xml);;All files (*)</source>
        <translation>设备文档 (*.yaml *.yml *.json *.xml);;所有文件 (*)</translation>
    </message>
    <message>
        <source>Open a unit</source>
        <translation>打开设备</translation>
    </message>
    <message>
        <source>Address, as in 192.168.1.21 or udp://192.168.1.21:3801</source>
        <translation>地址，例如 192.168.1.21 或 udp://192.168.1.21:3801</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no address; tcp://HOST:PORT is one</source>
        <translation>“%1”不是地址；例如 tcp://HOST:PORT</translation>
    </message>
    <message>
        <source>Save the document</source>
        <translation>保存文档</translation>
    </message>
    <message>
        <source>YAML documents (*.yaml *.yml);;JSON documents (*.json);;Project files (*.xml)</source>
        <translation>YAML 文档 (*.yaml *.yml);;JSON 文档 (*.json);;项目文件 (*.xml)</translation>
    </message>
    <message>
        <source>A project file has no place for some of it. Save it anyway?</source>
        <translation>项目文件无法保存其中一部分。仍要保存吗？</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>未保存的更改</translation>
    </message>
    <message>
        <source>Save the changes to &quot;%1&quot;?</source>
        <translation>保存对“%1”的更改？</translation>
    </message>
    <message numerus="yes">
        <source>The program did not end well, and %n document(s) had unsaved changes. Open them?</source>
        <translation>
            <numerusform>程序上次未正常结束，%n 个文档有未保存的更改。打开它们吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>设备(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>步骤</translation>
    </message>
    <message>
        <source>&amp;New document</source>
        <translation>新建文档(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>Open a &amp;unit...</source>
        <translation>打开设备(&amp;U)...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Read the file &amp;again</source>
        <translation>重新读取文件(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Read</source>
        <translation>读取(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Write...</source>
        <translation>写入(&amp;W)...</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
    <message>
        <source>As it was opened</source>
        <translation>打开时的状态</translation>
    </message>
    <message>
        <source>Units and documents</source>
        <translation>设备和文档</translation>
    </message>
</context>
<context>
    <name>MapPicture</name>
    <message numerus="yes">
        <source>%n event(s) missing</source>
        <translation>
            <numerusform>缺失 %n 个事件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unused</source>
        <comment>events</comment>
        <translation>
            <numerusform>%n 个未使用</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MapView</name>
    <message>
        <source>Map of what makes what happen</source>
        <translation>因果关系图</translation>
    </message>
    <message numerus="yes">
        <source>%n event(s)</source>
        <translation>
            <numerusform>%n 个事件</numerusform>
        </translation>
    </message>
    <message>
        <source>no such event</source>
        <translation>没有此事件</translation>
    </message>
    <message>
        <source>unused: nothing runs it</source>
        <translation>未使用：没有触发器执行它</translation>
    </message>
    <message>
        <source>runs nothing</source>
        <translation>不执行任何事件</translation>
    </message>
</context>
<context>
    <name>NetworkDialog</name>
    <message>
        <source>Each needs four numbers of 0 to 255, joined by dots.</source>
        <translation>每项需要四个 0 到 255 的数字，用点连接。</translation>
    </message>
    <message>
        <source>Network address</source>
        <translation>网络地址</translation>
    </message>
    <message>
        <source>Give the unit a fixed address? It is %1 now. A wrong one can put the unit out of reach.</source>
        <translation>给设备设置固定地址？当前为 %1。错误的地址可能使设备无法访问。</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>掩码</translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation>网关</translation>
    </message>
    <message>
        <source>Set the address</source>
        <translation>设置地址</translation>
    </message>
</context>
<context>
    <name>OperationBar</name>
    <message>
        <source>Reading the unit</source>
        <translation>正在读取设备</translation>
    </message>
    <message>
        <source>Writing to the unit</source>
        <translation>正在写入设备</translation>
    </message>
    <message>
        <source>Reading the clock</source>
        <translation>正在读取时钟</translation>
    </message>
    <message>
        <source>Setting the clock</source>
        <translation>正在设置时钟</translation>
    </message>
    <message>
        <source>Setting the network address</source>
        <translation>正在设置网络地址</translation>
    </message>
    <message>
        <source>Restarting the unit</source>
        <translation>正在重启设备</translation>
    </message>
    <message>
        <source>Writing the remark</source>
        <translation>正在写入备注</translation>
    </message>
    <message>
        <source>Writing the firmware</source>
        <translation>正在写入固件</translation>
    </message>
    <message>
        <source>Written and read back. What the unit held before is in %1.</source>
        <translation>已写入并回读。设备之前的内容保存在 %1。</translation>
    </message>
    <message>
        <source>Written and read back.</source>
        <translation>已写入并回读。</translation>
    </message>
    <message>
        <source>The clock was set.</source>
        <translation>时钟已设置。</translation>
    </message>
    <message>
        <source>The unit has taken the new address.</source>
        <translation>设备已采用新地址。</translation>
    </message>
    <message>
        <source>The unit restarts.</source>
        <translation>设备正在重启。</translation>
    </message>
    <message>
        <source>The remark was written.</source>
        <translation>备注已写入。</translation>
    </message>
    <message>
        <source>The unit is back with its new firmware.</source>
        <translation>设备已带着新固件恢复。</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>剩余 %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>关闭提示</translation>
    </message>
    <message>
        <source>State of the work</source>
        <translation>工作状态</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
</context>
<context>
    <name>OverviewPage</name>
    <message>
        <source>the same as this machine&apos;s</source>
        <translation>与本机相同</translation>
    </message>
    <message numerus="yes">
        <source>%n day(s) %1</source>
        <translation>
            <numerusform>%n 天 %1</numerusform>
        </translation>
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
        <source>Set the clock</source>
        <translation>设置时钟</translation>
    </message>
    <message>
        <source>Set the unit&apos;s clock to the time of this machine?</source>
        <translation>将设备时钟设为本机时间？</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>重启</translation>
    </message>
    <message>
        <source>Restart the unit? It keeps its address.</source>
        <translation>重启设备？地址保持不变。</translation>
    </message>
    <message>
        <source>Restart with default address</source>
        <translation>以默认地址重启</translation>
    </message>
    <message>
        <source>The unit restarts, and goes back from %1 to its default address. Restart it?</source>
        <translation>设备将重启，并从 %1 恢复为默认地址。重启吗？</translation>
    </message>
    <message>
        <source>Streamed image with the remark</source>
        <translation>含备注的流式镜像</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>备注</translation>
    </message>
    <message>
        <source>Write the remark of %1 to %2?</source>
        <translation>将 %1 的备注写入 %2？</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>写入</translation>
    </message>
    <message>
        <source>not read yet</source>
        <translation>尚未读取</translation>
    </message>
    <message>
        <source>not a real time</source>
        <translation>不是有效时间</translation>
    </message>
    <message>
        <source>by DHCP</source>
        <translation>由 DHCP 分配</translation>
    </message>
    <message>
        <source>fixed</source>
        <translation>固定</translation>
    </message>
    <message>
        <source>%1 serial ports, %2 IO lines, %3 relays, %4 infrared ports</source>
        <translation>%1 个串口，%2 条 IO 线路，%3 个继电器，%4 个红外口</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>These contents have no device. Read a unit to see it here.</source>
        <translation>此内容没有设备信息。读取设备后在此显示。</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备信息</translation>
    </message>
    <message>
        <source>Room on the unit</source>
        <translation>设备容量</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>时钟</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>设备</translation>
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
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>掩码</translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation>网关</translation>
    </message>
    <message>
        <source>Address is</source>
        <translation>地址方式</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>部件</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Triggers and time triggers</source>
        <translation>触发器和定时触发器</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>读取</translation>
    </message>
    <message>
        <source>Read the clock</source>
        <translation>读取时钟</translation>
    </message>
    <message>
        <source>Set...</source>
        <translation>设置...</translation>
    </message>
    <message>
        <source>Network address...</source>
        <translation>网络地址...</translation>
    </message>
    <message>
        <source>Restart...</source>
        <translation>重启...</translation>
    </message>
    <message>
        <source>Restart with default address...</source>
        <translation>以默认地址重启...</translation>
    </message>
    <message>
        <source>Remark...</source>
        <translation>备注...</translation>
    </message>
</context>
<context>
    <name>PictureTools</name>
    <message>
        <source>Picture</source>
        <translation>图</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Whole picture</source>
        <translation>整幅</translation>
    </message>
    <message>
        <source>Own size</source>
        <translation>原始大小</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>打印…</translation>
    </message>
    <message>
        <source>Save as picture…</source>
        <translation>另存为图片…</translation>
    </message>
    <message>
        <source>Scalable picture (*.svg)</source>
        <translation>可缩放图片 (*.svg)</translation>
    </message>
    <message>
        <source>Save as picture</source>
        <translation>另存为图片</translation>
    </message>
    <message>
        <source>Picture of dots (*.png)</source>
        <translation>点阵图片 (*.png)</translation>
    </message>
</context>
<context>
    <name>PictureView</name>
    <message>
        <source>%1: no kind of picture that can be written; its name ends with .svg or .png.</source>
        <translation>%1：不是可写入的图片类型；文件名应以 .svg 或 .png 结尾。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
</context>
<context>
    <name>PlanDialog</name>
    <message>
        <source>This can&apos;t be written to %1. Mend the errors first.</source>
        <translation>无法写入 %1。请先改正错误。</translation>
    </message>
    <message>
        <source>%1 holds all of this already; there is nothing to write.</source>
        <translation>%1 已包含全部内容；无需写入。</translation>
    </message>
    <message numerus="yes">
        <source>Write %n change(s) to %1?</source>
        <translation>
            <numerusform>将 %n 处更改写入 %1？</numerusform>
        </translation>
    </message>
    <message>
        <source>Write to the unit</source>
        <translation>写入设备</translation>
    </message>
    <message>
        <source>The unit has changed since it was read; the changes are counted from what it holds now.</source>
        <translation>设备在读取之后已改变；更改按其当前内容计算。</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>检查结果</translation>
    </message>
    <message>
        <source>What the unit holds now is kept as a backup first. After writing it is read back and compared.</source>
        <translation>会先备份设备当前的内容。写入后回读并比较。</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>写入</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>&quot;%1&quot; is neither a file nor an address</source>
        <translation>“%1”既不是文件也不是地址</translation>
    </message>
    <message>
        <source>The language of the program: en or zh.</source>
        <translation>程序的语言：en 或 zh。</translation>
    </message>
    <message>
        <source>Looks at control units and their documents, and changes them.</source>
        <translation>查看并修改控制设备及其文档。</translation>
    </message>
    <message>
        <source>Unit documents (YAML, JSON) and project files to open.</source>
        <translation>要打开的设备文档（YAML、JSON）和项目文件。</translation>
    </message>
    <message>
        <source>Units to read, as in tcp://192.168.1.21.</source>
        <translation>要读取的设备，例如 tcp://192.168.1.21。</translation>
    </message>
</context>
<context>
    <name>SectionModel</name>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>复制行</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移动</translation>
    </message>
    <message>
        <source>Line %1, %2: &quot;%3&quot; can&apos;t be understood; nothing was inserted</source>
        <translation>第 %1 行，%2：无法理解“%3”；未插入任何内容</translation>
    </message>
    <message>
        <source>There are no rows to insert</source>
        <translation>没有可插入的行</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>更改 %1</translation>
    </message>
</context>
<context>
    <name>Sections</name>
    <message>
        <source>Serial ports</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>IO lines</source>
        <translation>IO 线路</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation>触发器</translation>
    </message>
    <message>
        <source>Time triggers</source>
        <translation>定时触发器</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备信息</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>时钟</translation>
    </message>
    <message>
        <source>No serial ports. Read a unit to see its ports.</source>
        <translation>没有串口。读取设备以查看其串口。</translation>
    </message>
    <message>
        <source>No IO lines. Read a unit to see its lines.</source>
        <translation>没有 IO 线路。读取设备以查看其线路。</translation>
    </message>
    <message>
        <source>No events yet. An event is a command that is sent, or a delay. Press Insert to add one.</source>
        <translation>还没有事件。事件是要发送的命令或延时。按 Insert 键添加。</translation>
    </message>
    <message>
        <source>No triggers yet. A trigger runs events when bytes arrive or a line changes. Press Insert to add one.</source>
        <translation>还没有触发器。触发器在收到字节或线路变化时执行事件。按 Insert 键添加。</translation>
    </message>
    <message>
        <source>No time triggers yet. A time trigger runs events at a time of day. Press Insert to add one.</source>
        <translation>还没有定时触发器。定时触发器在某个时刻执行事件。按 Insert 键添加。</translation>
    </message>
</context>
<context>
    <name>TablePage</name>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Add a row below the selected one</source>
        <translation>在所选行下方添加一行</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>复制行</translation>
    </message>
    <message>
        <source>Add a copy of the selected rows</source>
        <translation>添加所选行的副本</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Delete the selected rows</source>
        <translation>删除所选行</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move the selected rows up</source>
        <translation>将所选行上移</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Move the selected rows down</source>
        <translation>将所选行下移</translation>
    </message>
    <message>
        <source>Copy rows</source>
        <translation>复制行文本</translation>
    </message>
    <message>
        <source>Copy the selected rows as text</source>
        <translation>将所选行复制为文本</translation>
    </message>
    <message>
        <source>Paste rows</source>
        <translation>粘贴行</translation>
    </message>
    <message>
        <source>Insert rows of text</source>
        <translation>插入文本行</translation>
    </message>
    <message>
        <source>Order of the unit</source>
        <translation>设备中的顺序</translation>
    </message>
    <message>
        <source>Show the rows in the order of the unit</source>
        <translation>按设备中的顺序显示</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Filter of the rows</source>
        <translation>行筛选</translation>
    </message>
    <message>
        <source>What went wrong</source>
        <translation>出错原因</translation>
    </message>
    <message>
        <source>No row contains &quot;%1&quot;.</source>
        <translation>没有包含“%1”的行。</translation>
    </message>
</context>
<context>
    <name>TextEditor</name>
    <message>
        <source>Text</source>
        <translation>文本</translation>
    </message>
    <message numerus="yes">
        <source>%n left</source>
        <comment>UTF-16 units</comment>
        <translation>
            <numerusform>剩余 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n too many</source>
        <comment>UTF-16 units</comment>
        <translation>
            <numerusform>超出 %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TimeEditor</name>
    <message>
        <source>Time of day</source>
        <translation>时刻</translation>
    </message>
    <message>
        <source>not “%1”</source>
        <translation>并非“%1”</translation>
    </message>
</context>
<context>
    <name>TriggerWords</name>
    <message>
        <source>Runs nothing</source>
        <translation>不执行任何事件</translation>
    </message>
    <message>
        <source>Runs:</source>
        <translation>执行：</translation>
    </message>
    <message numerus="yes">
        <source>    and %n more</source>
        <comment>events</comment>
        <translation>
            <numerusform>    另有 %n 个</numerusform>
        </translation>
    </message>
    <message>
        <source>no level</source>
        <translation>无电平</translation>
    </message>
    <message>
        <source>high</source>
        <translation>高</translation>
    </message>
    <message>
        <source>low</source>
        <translation>低</translation>
    </message>
    <message>
        <source>every day</source>
        <translation>每天</translation>
    </message>
    <message>
        <source>once</source>
        <translation>一次</translation>
    </message>
    <message>
        <source>weekly, on no day</source>
        <translation>每周，无星期</translation>
    </message>
    <message>
        <source>on %1</source>
        <translation>于 %1</translation>
    </message>
    <message>
        <source>from %1 until %2</source>
        <translation>从 %1 到 %2</translation>
    </message>
    <message>
        <source>from %1, forever</source>
        <translation>从 %1 起，永久</translation>
    </message>
    <message>
        <source>%1, unknown line</source>
        <translation>%1，未知线路</translation>
    </message>
    <message>
        <source>%1 Modbus</source>
        <translation>%1 Modbus</translation>
    </message>
    <message>
        <source>Waits for: %1</source>
        <translation>等待：%1</translation>
    </message>
    <message>
        <source>waits %1 ms</source>
        <translation>等待 %1 毫秒</translation>
    </message>
    <message>
        <source>Serial ports</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>Modbus</source>
        <translation>Modbus</translation>
    </message>
    <message>
        <source>IO lines</source>
        <translation>IO 线路</translation>
    </message>
    <message>
        <source>Infra-red</source>
        <translation>红外</translation>
    </message>
    <message>
        <source>Relays</source>
        <translation>继电器</translation>
    </message>
    <message>
        <source>The unit itself</source>
        <translation>设备自身</translation>
    </message>
    <message>
        <source>A delay</source>
        <translation>延时</translation>
    </message>
    <message>
        <source>Other commands</source>
        <translation>其他命令</translation>
    </message>
    <message>
        <source>never: there is no time “%1”</source>
        <translation>从不：没有时刻“%1”</translation>
    </message>
    <message>
        <source>never: there is no day “%1”</source>
        <translation>从不：没有日期“%1”</translation>
    </message>
    <message>
        <source>unknown: there is no day “%1”</source>
        <translation>未知：没有日期“%1”</translation>
    </message>
    <message>
        <source>never: it ends before it begins</source>
        <translation>从不：结束早于开始</translation>
    </message>
    <message>
        <source>never: it has no weekday</source>
        <translation>从不：没有星期</translation>
    </message>
    <message>
        <source>begins later, on %1</source>
        <translation>稍后于 %1 开始</translation>
    </message>
    <message>
        <source>has ended, on %1</source>
        <translation>已于 %1 结束</translation>
    </message>
    <message>
        <source>on none of its days</source>
        <translation>不在其任何一天</translation>
    </message>
</context>
<context>
    <name>UnitPage</name>
    <message>
        <source>Overview</source>
        <translation>概览</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>比较</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Pages of the unit</source>
        <translation>设备页面</translation>
    </message>
    <message>
        <source>Week</source>
        <translation>周</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>关系图</translation>
    </message>
</context>
<context>
    <name>UnitWorkspace</name>
    <message>
        <source>New document</source>
        <translation>新文档</translation>
    </message>
    <message>
        <source>Read from the unit</source>
        <translation>从设备读取</translation>
    </message>
</context>
<context>
    <name>UnitsPanel</name>
    <message>
        <source>Open a site&apos;s inventory</source>
        <translation>打开站点清单</translation>
    </message>
    <message>
        <source>Inventories (*.yaml *.yml);;All files (*)</source>
        <translation>清单 (*.yaml *.yml);;所有文件 (*)</translation>
    </message>
    <message>
        <source>reachable</source>
        <translation>可访问</translation>
    </message>
    <message numerus="yes">
        <source>Searching, %n found</source>
        <translation>
            <numerusform>正在搜索，找到 %n 个</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n found</source>
        <translation>
            <numerusform>找到 %n 个</numerusform>
        </translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Search the network for units</source>
        <translation>在网络中搜索设备</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>添加...</translation>
    </message>
    <message>
        <source>Add a unit by its address</source>
        <translation>按地址添加设备</translation>
    </message>
    <message>
        <source>Site...</source>
        <translation>站点...</translation>
    </message>
    <message>
        <source>Add the units of a site&apos;s inventory</source>
        <translation>添加站点清单中的设备</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>型号</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Units and documents</source>
        <translation>设备和文档</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文档</translation>
    </message>
</context>
<context>
    <name>WeekPicture</name>
    <message>
        <source>&amp;Previous week</source>
        <translation>上一周(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Today</source>
        <translation>今天(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Next week</source>
        <translation>下一周(&amp;N)</translation>
    </message>
    <message>
        <source>Date to look at</source>
        <translation>要查看的日期</translation>
    </message>
    <message>
        <source>Time triggers that do not fire in this week</source>
        <translation>本周不触发的定时触发器</translation>
    </message>
    <message numerus="yes">
        <source>%n time trigger(s) not in this &amp;week:</source>
        <translation>
            <numerusform>本周不触发的 %n 个定时触发器(&amp;W)：</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WeekView</name>
    <message>
        <source>Week</source>
        <translation>周</translation>
    </message>
    <message>
        <source>%1, today</source>
        <translation>%1，今天</translation>
    </message>
    <message>
        <source>Now, %1</source>
        <translation>现在，%1</translation>
    </message>
</context>
<context>
    <name>WeekdayEditor</name>
    <message>
        <source>Number %1, which is no day</source>
        <translation>编号 %1，不是星期</translation>
    </message>
</context>
<context>
    <name>Weekdays</name>
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
        <source>Monday</source>
        <translation>星期一</translation>
    </message>
    <message>
        <source>Tuesday</source>
        <translation>星期二</translation>
    </message>
    <message>
        <source>Wednesday</source>
        <translation>星期三</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>星期四</translation>
    </message>
    <message>
        <source>Friday</source>
        <translation>星期五</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>星期六</translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation>星期日</translation>
    </message>
</context>
</TS>
