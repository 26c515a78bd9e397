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
    <name>quadreldocument</name>
    <message>
        <source>%1 is out of range; %2 to %3 are allowed</source>
        <translation>%1 超出范围；允许 %2 到 %3</translation>
    </message>
    <message>
        <source>there are %1, but the device has %2; as many as it has are allowed</source>
        <translation>有 %1 个，而设备有 %2 个；数目必须与设备相同</translation>
    </message>
    <message>
        <source>there are %1; a unit has room for %2</source>
        <translation>有 %1 个；设备最多容纳 %2 个</translation>
    </message>
    <message>
        <source>a unit takes this command for a delay and forgets its first three bytes; &quot;delay&quot; is due instead</source>
        <translation>设备会把该命令当作延时，并丢弃前三个字节；请改用 &quot;delay&quot;</translation>
    </message>
    <message>
        <source>%1 bytes are too many; %2 are allowed</source>
        <translation>%1 字节过多；最多允许 %2 字节</translation>
    </message>
    <message>
        <source>&quot;$$&quot; is not allowed; what follows it would be read as the name</source>
        <translation>不允许 &quot;$$&quot;；其后的内容会被当作名称读回</translation>
    </message>
    <message>
        <source>&quot;$$&quot; is not allowed; a unit drops what follows it</source>
        <translation>不允许 &quot;$$&quot;；设备会丢弃其后的内容</translation>
    </message>
    <message>
        <source>this name is read as none; another one is allowed, or leave the key out</source>
        <translation>该名称读回时等于没有名称；请换一个，或省略此键</translation>
    </message>
    <message>
        <source>&quot;$&quot; is not allowed at the end ahead of a name; it would be read as part of that</source>
        <translation>有名称时结尾不允许 &quot;$&quot;；它会被读作名称的一部分</translation>
    </message>
    <message>
        <source>description and name take %1 UTF-16 units, with 2 between them if there is a name; %2 are allowed</source>
        <translation>描述与名称共占 %1 个 UTF-16 单元（有名称时含其间 2 个）；最多允许 %2 个</translation>
    </message>
    <message>
        <source>command, description and name take %1 bytes; %2 are allowed</source>
        <translation>命令、描述与名称共占 %1 字节；最多允许 %2 字节</translation>
    </message>
    <message>
        <source>%1 records with time triggers are too many; %2 are allowed</source>
        <translation>连同定时触发共 %1 条记录，过多；最多允许 %2 条</translation>
    </message>
    <message>
        <source>it is missing, and a unit can&apos;t store that; high or low is allowed</source>
        <translation>缺少此值，而设备无法保存这种情况；允许 high 或 low</translation>
    </message>
    <message>
        <source>it is not known; a project file has no place for that of a Modbus trigger</source>
        <translation>未知；工程文件无法保存 Modbus 触发的线路</translation>
    </message>
    <message>
        <source>%1 is read back as another line; COM A-1 to COM D-2 are allowed</source>
        <translation>%1 读回时会变成另一线路；允许 COM A-1 到 COM D-2</translation>
    </message>
    <message>
        <source>%1 is beyond the lines of the device, which has %2</source>
        <translation>%1 超出设备的线路，设备有 %2 条</translation>
    </message>
    <message>
        <source>it is too short for a Modbus message with a checksum</source>
        <translation>长度不足以构成带校验的 Modbus 报文</translation>
    </message>
    <message>
        <source>the Modbus checksum is wrong; %1 would be right</source>
        <translation>Modbus 校验错误；正确的是 %1</translation>
    </message>
    <message>
        <source>a trigger that runs once is read back with the day that it starts on; %1 is allowed</source>
        <translation>只执行一次的触发，读回的结束日期就是开始日期；允许 %1</translation>
    </message>
    <message>
        <source>there is no time %1; &quot;00:00&quot; to &quot;23:59&quot; are allowed</source>
        <translation>时间 %1 不存在；允许 &quot;00:00&quot; 到 &quot;23:59&quot;</translation>
    </message>
    <message>
        <source>there is no day %1; days from 2000 to 2099 are allowed, such as &quot;2024/03/07&quot;</source>
        <translation>日期 %1 不存在；允许 2000 至 2099 年的日期，例如 &quot;2024/03/07&quot;</translation>
    </message>
    <message>
        <source>%1 is here already; once is allowed</source>
        <translation>%1 已经出现过；只允许一次</translation>
    </message>
    <message>
        <source>a trigger without events comes back with event 0; at least one is due</source>
        <translation>没有事件的触发读回时会带事件 0；至少需要一个事件</translation>
    </message>
    <message>
        <source>there are %1; %2 are allowed</source>
        <translation>有 %1 个；最多允许 %2 个</translation>
    </message>
    <message>
        <source>there is no event %1; only those in &quot;events&quot; are allowed</source>
        <translation>事件 %1 不存在；只允许 &quot;events&quot; 中的事件</translation>
    </message>
    <message>
        <source>%1 UTF-16 units are too many; %2 are allowed</source>
        <translation>%1 个 UTF-16 单元过多；最多允许 %2 个</translation>
    </message>
    <message>
        <source>U+0000 is not allowed; a unit drops it and all that follows</source>
        <translation>不允许 U+0000；设备会丢弃它及其后的全部内容</translation>
    </message>
    <message>
        <source>half a surrogate pair is not allowed; only whole ones are</source>
        <translation>不允许半个代理对；只允许完整的代理对</translation>
    </message>
    <message>
        <source>the id %1 is here already; once is allowed</source>
        <translation>ID %1 已经出现过；只允许一次</translation>
    </message>
    <message>
        <source>nothing uses it</source>
        <translation>没有被使用</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1, moved from place %2 to %3</source>
        <translation>%1，位置由 %2 移到 %3</translation>
    </message>
    <message>
        <source>this section is missing, and it was asked for</source>
        <translation>缺少指定的这一部分</translation>
    </message>
    <message>
        <source>this is unit %1, and the unit to be written is %2; only its own contents are allowed unless another unit&apos;s are asked for</source>
        <translation>这是设备 %1 的内容，而要写入的设备是 %2；除非明确要求，否则只允许该设备自己的内容</translation>
    </message>
    <message>
        <source>this is model %1, and the unit to be written is model %2; only its own contents are allowed unless another unit&apos;s are asked for</source>
        <translation>这是型号 %1 的内容，而要写入的设备型号是 %2；除非明确要求，否则只允许该设备自己的内容</translation>
    </message>
    <message>
        <source>the unit keeps %1 Modbus triggers, of which the project file shows %2; it can&apos;t remove any</source>
        <translation>设备保留 %1 个 Modbus 触发，工程文件只列出 %2 个；工程文件无法删除它们</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>空值</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>a record</source>
        <translation>记录</translation>
    </message>
    <message>
        <source>%1 is not allowed; a record with keys is due</source>
        <translation>不允许%1；此处应为带键的记录</translation>
    </message>
    <message>
        <source>%1 is not allowed; a whole number from %2 to %3 is</source>
        <translation>不允许 %1；允许 %2 到 %3 的整数</translation>
    </message>
    <message>
        <source>%1 is not allowed; true or false is</source>
        <translation>不允许 %1；允许 true 或 false</translation>
    </message>
    <message>
        <source>%1 is not allowed; a text is, &quot;&quot; for none</source>
        <translation>不允许 %1；允许文本，没有内容时用 &quot;&quot;</translation>
    </message>
    <message>
        <source>%1 is not allowed; %2</source>
        <translation>不允许 %1；%2</translation>
    </message>
    <message>
        <source>%1 is not allowed; a list such as [1, 2] is</source>
        <translation>不允许 %1；允许如 [1, 2] 的列表</translation>
    </message>
    <message>
        <source>%1 is not allowed; whole numbers from %2 to %3 are</source>
        <translation>不允许 %1；允许 %2 到 %3 的整数</translation>
    </message>
    <message>
        <source>&quot;%1&quot; and &quot;%2&quot; are not allowed together; one of them is</source>
        <translation>&quot;%1&quot; 与 &quot;%2&quot; 不能同时出现；只允许其中之一</translation>
    </message>
    <message>
        <source>pairs of the digits 0 to 9 and a to f are, such as &quot;4c 01 00&quot;</source>
        <translation>允许成对的 0 到 9、a 到 f，例如 &quot;4c 01 00&quot;</translation>
    </message>
    <message>
        <source>characters up to U+00FF are, and the escapes \\ \r \n \t \0 \xHH</source>
        <translation>允许不超过 U+00FF 的字符和转义 \\ \r \n \t \0 \xHH</translation>
    </message>
    <message>
        <source>false is not allowed; texts have a key of their own</source>
        <translation>不允许 false；文本有单独的键</translation>
    </message>
    <message>
        <source>the key &quot;%1&quot; is missing</source>
        <translation>缺少键 &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1 is not a key here; allowed are %2</source>
        <translation>此处没有键 %1；允许 %2</translation>
    </message>
    <message>
        <source>the key &quot;%1&quot; is here already; once is allowed</source>
        <translation>键 &quot;%1&quot; 已经出现过；只允许一次</translation>
    </message>
    <message>
        <source>four numbers from 0 to 255 with dots between them are</source>
        <translation>允许以点分隔的四个 0 到 255 的数</translation>
    </message>
    <message>
        <source>a text of decimal digits is</source>
        <translation>允许由十进制数字组成的文本</translation>
    </message>
    <message>
        <source>an event with a delay has no command; one of them is allowed</source>
        <translation>延时事件没有命令；两者只允许其一</translation>
    </message>
    <message>
        <source>it is missing; this, &quot;protocolText&quot; or &quot;delay&quot; is due</source>
        <translation>缺少此值；需要此键、&quot;protocolText&quot; 或 &quot;delay&quot;</translation>
    </message>
    <message>
        <source>%1 is not what the command makes it; %2 is, or leave the key out</source>
        <translation>%1 与命令不符；应为 %2，或省略此键</translation>
    </message>
    <message>
        <source>%1 to %2 are</source>
        <translation>允许 %1 到 %2</translation>
    </message>
    <message>
        <source>it is not allowed for an IO line; &quot;parameter&quot; with high or low is</source>
        <translation>IO 线路不允许此键；允许值为 high 或 low 的 &quot;parameter&quot;</translation>
    </message>
    <message>
        <source>high or low is</source>
        <translation>允许 high 或 low</translation>
    </message>
    <message>
        <source>COM, COM_MODBUS or IO is</source>
        <translation>允许 COM、COM_MODBUS 或 IO</translation>
    </message>
    <message>
        <source>EVERYDAY, WEEKLY or ONCE is</source>
        <translation>允许 EVERYDAY、WEEKLY 或 ONCE</translation>
    </message>
    <message>
        <source>%1 is not allowed; a list of records is, [] for none</source>
        <translation>不允许 %1；允许记录的列表，没有记录时用 []</translation>
    </message>
    <message>
        <source>%1 records are more than any unit has; only the first %2 are looked at</source>
        <translation>%1 条记录超过任何设备的容量；只检查前 %2 条</translation>
    </message>
    <message>
        <source>number %1 is missing; they run from 1 without a gap</source>
        <translation>缺少编号 %1；编号须从 1 开始且连续</translation>
    </message>
    <message>
        <source>%1 is not allowed; a text is</source>
        <translation>不允许 %1；允许文本</translation>
    </message>
    <message>
        <source>found %1 instead of a unit document; it starts with &quot;format: %2&quot;</source>
        <translation>%1 不是设备文档；文档以 &quot;format: %2&quot; 开头</translation>
    </message>
    <message>
        <source>%1 is not allowed; %2 is</source>
        <translation>不允许 %1；允许 %2</translation>
    </message>
    <message>
        <source>%1 is not a path; paths are such as events[8], events[8].description and device.ip</source>
        <translation>%1 不是路径；路径形如 events[8]、events[8].description 和 device.ip</translation>
    </message>
    <message>
        <source>%1: there is no such field; there are %2</source>
        <translation>%1：没有这个字段；有 %2</translation>
    </message>
    <message>
        <source>%1: %2 is not a value</source>
        <translation>%1：%2 不是有效的值</translation>
    </message>
    <message>
        <source>this is not a unit document</source>
        <translation>这不是设备文档</translation>
    </message>
    <message>
        <source>%1: a record has to have a field</source>
        <translation>%1：记录至少要有一个字段</translation>
    </message>
    <message>
        <source>line %1 can&apos;t be changed without touching what is beside it; it is for an editor to do</source>
        <translation>第 %1 行无法单独修改；请用编辑器修改</translation>
    </message>
    <message>
        <source>%1: the record is empty</source>
        <translation>%1：记录是空的</translation>
    </message>
    <message>
        <source>%1: it is not there</source>
        <translation>%1：不存在</translation>
    </message>
    <message>
        <source>%1: a record is written in braces, such as {delay: 500}</source>
        <translation>%1：记录须写在花括号中，例如 {delay: 500}</translation>
    </message>
    <message>
        <source>%1: the record says %2 %3</source>
        <translation>%1：记录中写的是 %2 %3</translation>
    </message>
    <message>
        <source>%1 has no &quot;=&quot;; an assignment is such as events[8].description=Display off</source>
        <translation>%1 中没有 &quot;=&quot;；赋值形如 events[8].description=Display off</translation>
    </message>
    <message>
        <source>%1: only records and fields can be set, such as events[8]</source>
        <translation>%1：只能设置记录和字段，例如 events[8]</translation>
    </message>
    <message>
        <source>%1: only records and fields can be unset, such as events[8]</source>
        <translation>%1：只能删除记录和字段，例如 events[8]</translation>
    </message>
    <message>
        <source>%1: it can&apos;t be left out</source>
        <translation>%1：不能省略</translation>
    </message>
    <message>
        <source>a project file can&apos;t be changed in place; .yaml and .json can</source>
        <translation>工程文件不能就地修改；.yaml 和 .json 可以</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>this is not text in UTF-8; only that is read</source>
        <translation>这不是 UTF-8 文本；只能读取 UTF-8</translation>
    </message>
    <message>
        <source>control characters are not allowed; escapes such as \u001b are</source>
        <translation>不允许控制字符；允许如 \u001b 的转义</translation>
    </message>
    <message>
        <source>more than %1 bytes; a unit needs a tenth of that</source>
        <translation>超过 %1 字节；一台设备只需其十分之一</translation>
    </message>
    <message>
        <source>warning: </source>
        <translation>警告：</translation>
    </message>
    <message>
        <source>note: </source>
        <translation>提示：</translation>
    </message>
    <message>
        <source>nothing may follow the document</source>
        <translation>文档之后不能再有内容</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is due here</source>
        <translation>此处应为 &quot;%1&quot;</translation>
    </message>
    <message>
        <source>more than %1 levels; a unit needs 4</source>
        <translation>超过 %1 层；一台设备只需 4 层</translation>
    </message>
    <message>
        <source>more than %1 values</source>
        <translation>超过 %1 个值</translation>
    </message>
    <message>
        <source>a value of JSON is due here</source>
        <translation>此处应为 JSON 的值</translation>
    </message>
    <message>
        <source>a text in quotes is due here</source>
        <translation>此处应为带引号的文本</translation>
    </message>
    <message>
        <source>the text does not end in its line</source>
        <translation>文本没有在本行结束</translation>
    </message>
    <message>
        <source>JSON has no such escape</source>
        <translation>JSON 没有这种转义</translation>
    </message>
    <message>
        <source>a project file has no place for kind and line of a Modbus trigger</source>
        <translation>工程文件无法保存 Modbus 触发的类型和线路</translation>
    </message>
    <message>
        <source>a project file has no place for it</source>
        <translation>工程文件无法保存</translation>
    </message>
    <message>
        <source>a project file can&apos;t say that there are none</source>
        <translation>工程文件无法表示一个也没有</translation>
    </message>
    <message>
        <source>a project file has no place for the character U+%1</source>
        <translation>工程文件无法保存字符 U+%1</translation>
    </message>
    <message>
        <source>a project file has no place for blanks alone</source>
        <translation>工程文件无法保存只有空白的文本</translation>
    </message>
    <message>
        <source>this is not well-formed XML: %1</source>
        <translation>XML 格式不正确：%1</translation>
    </message>
    <message>
        <source>no section of a project file has a record; Configs, Events and Triggers are known</source>
        <translation>工程文件的各部分都没有记录；可有 Configs、Events 和 Triggers</translation>
    </message>
    <message>
        <source>text is not allowed here; only elements are</source>
        <translation>此处不允许文本；只允许元素</translation>
    </message>
    <message>
        <source>a comment within a record makes the reader skip the record; between records it is allowed</source>
        <translation>记录内的注释会使整条记录被跳过；注释只允许放在记录之间</translation>
    </message>
    <message>
        <source>a document type has no place in a project file</source>
        <translation>工程文件中不允许文档类型声明</translation>
    </message>
    <message>
        <source>this section is here already; a second one is never read</source>
        <translation>这一部分已经出现过；第二个永远不会被读取</translation>
    </message>
    <message>
        <source>the element %1 is never read; Device, Configs, Events and Triggers are known</source>
        <translation>元素 %1 永远不会被读取；可有 Device、Configs、Events 和 Triggers</translation>
    </message>
    <message>
        <source>the element %1 is not allowed here; only text is</source>
        <translation>此处不允许元素 %1；只允许文本</translation>
    </message>
    <message>
        <source>the element %1 makes the reader skip the record; allowed are %2</source>
        <translation>元素 %1 会使整条记录被跳过；允许 %2</translation>
    </message>
    <message>
        <source>the element &quot;%1&quot; is here already; once is allowed</source>
        <translation>元素 &quot;%1&quot; 已经出现过；只允许一次</translation>
    </message>
    <message>
        <source>the element &quot;%1&quot; is missing, and the reader would skip the record</source>
        <translation>缺少元素 &quot;%1&quot;，整条记录会被跳过</translation>
    </message>
    <message>
        <source>%1 is not a record of this section; allowed are %2</source>
        <translation>%1 不是这一部分的记录；允许 %2</translation>
    </message>
    <message>
        <source>%1 in %2 is not allowed; a whole number from %3 to %4 is</source>
        <translation>%2 中不允许 %1；允许 %3 到 %4 的整数</translation>
    </message>
    <message>
        <source>%1 in %2 is not allowed; allowed are %3</source>
        <translation>%2 中不允许 %1；允许 %3</translation>
    </message>
    <message>
        <source>%1 in Protocol is not allowed; pairs of the digits 0 to 9 and a to f are, such as &quot;4c 01 00&quot;</source>
        <translation>Protocol 中不允许 %1；允许成对的 0 到 9、a 到 f，例如 &quot;4c 01 00&quot;</translation>
    </message>
    <message>
        <source>the reader skips all records from here on; %1 are allowed</source>
        <translation>从此处起的记录都会被跳过；最多允许 %1 条</translation>
    </message>
    <message>
        <source>%1 in Protocol is not a delay; &quot;0*10ms&quot; to &quot;6553.5*10ms&quot; are allowed</source>
        <translation>Protocol 中的 %1 不是延时；允许 &quot;0*10ms&quot; 到 &quot;6553.5*10ms&quot;</translation>
    </message>
    <message>
        <source>%1 in %2 is not allowed; %3 to %4 are</source>
        <translation>%2 中不允许 %1；允许 %3 到 %4</translation>
    </message>
    <message>
        <source>%1 in Protocol is not allowed; characters up to U+00FF are</source>
        <translation>Protocol 中不允许 %1；允许不超过 U+00FF 的字符</translation>
    </message>
    <message>
        <source>%1 in Event is not allowed; items from &quot;ID:0&quot; to &quot;ID:255&quot; with &quot;;&quot; between them are</source>
        <translation>Event 中不允许 %1；允许以 &quot;;&quot; 分隔的 &quot;ID:0&quot; 到 &quot;ID:255&quot;</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>the file can&apos;t be read: %1</source>
        <translation>无法读取文件：%1</translation>
    </message>
    <message>
        <source>the ending says nothing; .yaml, .yml, .json and .xml are known</source>
        <translation>无法识别扩展名；可用 .yaml、.yml、.json 和 .xml</translation>
    </message>
    <message>
        <source>the project file can&apos;t be made</source>
        <translation>无法生成工程文件</translation>
    </message>
    <message>
        <source>the file is write-protected</source>
        <translation>文件是只读的</translation>
    </message>
    <message>
        <source>aliases have no place in a unit document</source>
        <translation>设备文档中不允许别名</translation>
    </message>
    <message>
        <source>anchors have no place in a unit document</source>
        <translation>设备文档中不允许锚点</translation>
    </message>
    <message>
        <source>tags have no place in a unit document</source>
        <translation>设备文档中不允许标签</translation>
    </message>
    <message>
        <source>a key is a single word</source>
        <translation>键必须是单个词</translation>
    </message>
    <message>
        <source>this is not YAML: %1</source>
        <translation>不是有效的 YAML：%1</translation>
    </message>
    <message>
        <source>more than %1 attributes; a project file has none</source>
        <translation>属性超过 %1 个；工程文件中没有属性</translation>
    </message>
    <message>
        <source>the text that starts here has no closing quote</source>
        <translation>从这里开始的文本没有结束的引号</translation>
    </message>
</context>
</TS>
