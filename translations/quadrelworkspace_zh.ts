<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>quadrelworkspace</name>
    <message>
        <source>%1 is not a subnet mask for a unit</source>
        <translation>%1 不能用作设备的子网掩码</translation>
    </message>
    <message>
        <source>%1 is not an address for a unit</source>
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
        <source>%1: not a regular file</source>
        <translation>%1：不是普通文件</translation>
    </message>
    <message>
        <source>%1: the file is larger than %2 MB</source>
        <translation>%1：文件大于 %2 MB</translation>
    </message>
    <message>
        <source>%1: the file is empty, and not an image</source>
        <translation>%1：文件为空，这里需要固件映像</translation>
    </message>
    <message>
        <source>%1: this is XML, and not an image</source>
        <translation>%1：这是 XML，这里需要固件映像</translation>
    </message>
    <message>
        <source>%1: this is text, and not an image</source>
        <translation>%1：这是文本，这里需要固件映像</translation>
    </message>
    <message>
        <source>%1: the descriptor is empty</source>
        <translation>%1：描述文件为空</translation>
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
    <message>
        <source>%1 is not a name; a name has 1 to %2 letters, digits, &quot;-&quot;, &quot;_&quot; and &quot;.&quot;, and does not begin with &quot;-&quot; or &quot;.&quot;</source>
        <translation>%1 不是名称；名称由 1 到 %2 个字母、数字、&quot;-&quot;、&quot;_&quot; 和 &quot;.&quot; 组成，且不以 &quot;-&quot; 或 &quot;.&quot; 开头</translation>
    </message>
    <message>
        <source>%1 is not an address; one is tcp://HOST:PORT or udp://HOST:PORT</source>
        <translation>%1 不是地址；地址的形式是 tcp://HOST:PORT 或 udp://HOST:PORT</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>the file is larger than 4 MB</source>
        <translation>文件大于 4 MB</translation>
    </message>
    <message>
        <source>the file has to hold &quot;key: value&quot;</source>
        <translation>文件内容须为 &quot;key: value&quot;</translation>
    </message>
    <message>
        <source>unknown key %1; known are %2</source>
        <translation>未知的键 %1；已知的键有 %2</translation>
    </message>
    <message>
        <source>%1 is repeated</source>
        <translation>%1 出现了两次</translation>
    </message>
    <message>
        <source>%1 has to be a number from %2 to %3</source>
        <translation>%1 须为 %2 到 %3 之间的数字</translation>
    </message>
    <message>
        <source>%1 is %2; allowed are %3</source>
        <translation>%1 的值是 %2；允许的值有 %3</translation>
    </message>
    <message>
        <source>%1 has to hold &quot;key: value&quot;</source>
        <translation>%1 的内容须为 &quot;key: value&quot;</translation>
    </message>
    <message>
        <source>%1 has to hold a list, &quot;- value&quot;</source>
        <translation>%1 的内容须为列表，&quot;- value&quot;</translation>
    </message>
    <message>
        <source>%1 has to be a text</source>
        <translation>%1 须为文本</translation>
    </message>
    <message>
        <source>more than %1 tags</source>
        <translation>标签多于 %1 个</translation>
    </message>
    <message>
        <source>the unit has no %1</source>
        <translation>该设备没有 %1</translation>
    </message>
    <message>
        <source>another unit has the %1 %2 too</source>
        <translation>另一台设备的 %1 也是 %2</translation>
    </message>
    <message>
        <source>more than %1 units</source>
        <translation>设备多于 %1 台</translation>
    </message>
    <message>
        <source>a unit has to hold &quot;key: value&quot;</source>
        <translation>设备的内容须为 &quot;key: value&quot;</translation>
    </message>
    <message>
        <source>no unit has the tag %1</source>
        <translation>没有设备带有标签 %1</translation>
    </message>
    <message>
        <source>no unit has the name %1</source>
        <translation>没有设备名为 %1</translation>
    </message>
    <message>
        <source>the list of units is not written line by line with &quot;- &quot;; change it by hand</source>
        <translation>设备列表不是以 &quot;- &quot; 逐行书写的；请手工修改</translation>
    </message>
    <message>
        <source>inventory</source>
        <translation>清单</translation>
    </message>
    <message>
        <source>the inventory has no units</source>
        <translation>清单中没有设备</translation>
    </message>
    <message>
        <source>no unit is selected</source>
        <translation>没有选中任何设备</translation>
    </message>
    <message>
        <source>the device information</source>
        <translation>设备信息</translation>
    </message>
    <message>
        <source>the serial ports</source>
        <translation>串口</translation>
    </message>
    <message>
        <source>the IO lines</source>
        <translation>IO 线路</translation>
    </message>
    <message>
        <source>the events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>the triggers</source>
        <translation>触发器</translation>
    </message>
    <message>
        <source>the time triggers</source>
        <translation>定时触发器</translation>
    </message>
    <message>
        <source>the clock</source>
        <translation>时钟</translation>
    </message>
    <message>
        <source>the images</source>
        <translation>固件映像</translation>
    </message>
    <message>
        <source>serial ports and IO lines</source>
        <translation>串口和 IO 线路</translation>
    </message>
    <message>
        <source>events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>triggers and time triggers</source>
        <translation>触发器和定时触发器</translation>
    </message>
    <message>
        <source>as before</source>
        <translation>与之前相同</translation>
    </message>
    <message>
        <source>new</source>
        <translation>新内容</translation>
    </message>
    <message>
        <source>new, but not read back</source>
        <translation>新内容，但没有回读</translation>
    </message>
    <message>
        <source>unknown, perhaps some old and some new</source>
        <translation>未知，可能新旧混杂</translation>
    </message>
    <message>
        <source>check the address, the network, and that the unit is switched on; then try again</source>
        <translation>请检查地址、网络以及设备是否已通电；然后重试</translation>
    </message>
    <message>
        <source>reading %1</source>
        <translation>读取%1</translation>
    </message>
    <message>
        <source>writing %1</source>
        <translation>写入%1</translation>
    </message>
    <message>
        <source>reading back %1</source>
        <translation>回读%1</translation>
    </message>
    <message>
        <source>waiting until the unit is back</source>
        <translation>等待设备重新上线</translation>
    </message>
    <message>
        <source>failed while %1</source>
        <translation>失败时正在：%1</translation>
    </message>
    <message>
        <source>%1: the unit there has the serial number %2; %3 was expected</source>
        <translation>%1：那里的设备序列号是 %2；应为 %3</translation>
    </message>
    <message>
        <source>find out which unit has which address; nothing was changed</source>
        <translation>请查明各设备的地址；没有做任何更改</translation>
    </message>
    <message>
        <source>what it held before is in %1</source>
        <translation>之前的内容保存在 %1</translation>
    </message>
    <message>
        <source>%1: the unit has to be read first</source>
        <translation>%1：须先读取设备</translation>
    </message>
    <message>
        <source>%1: the plan has errors</source>
        <translation>%1：计划有错误</translation>
    </message>
    <message>
        <source>nothing was sent to the unit</source>
        <translation>没有向设备发送任何内容</translation>
    </message>
    <message>
        <source>the backup cannot be written: %1</source>
        <translation>无法写入备份：%1</translation>
    </message>
    <message>
        <source>make it possible to write there; then try again</source>
        <translation>请使该处可写；然后重试</translation>
    </message>
    <message>
        <source>write the same again when the unit answers; %1</source>
        <translation>设备有应答后请再次写入相同内容；%1</translation>
    </message>
    <message>
        <source>read the unit when it answers, and compare; %1</source>
        <translation>设备有应答后请读取并比较；%1</translation>
    </message>
    <message>
        <source>%1: the unit does not hold what was written to it</source>
        <translation>%1：设备中的内容与写入的不同</translation>
    </message>
    <message>
        <source>write the same again; %1</source>
        <translation>请再次写入相同内容；%1</translation>
    </message>
    <message>
        <source>the unit may hold half an image</source>
        <translation>设备中可能只有一半固件映像</translation>
    </message>
    <message>
        <source>run the upgrade again, without switching the unit off</source>
        <translation>请再次升级，其间不要断开设备电源</translation>
    </message>
    <message>
        <source>check the images and the descriptor; then run the upgrade again</source>
        <translation>请检查固件映像和描述文件；然后再次升级</translation>
    </message>
    <message>
        <source>%1: the unit has not come back within %2 s</source>
        <translation>%1：设备在 %2 秒内没有重新上线</translation>
    </message>
    <message>
        <source>both images were sent</source>
        <translation>两个固件映像都已发送</translation>
    </message>
    <message>
        <source>look for the unit in the network; it may have got another address</source>
        <translation>请在网络中查找该设备；它可能得到了另一个地址</translation>
    </message>
    <message>
        <source>not finished within %1 s</source>
        <translation>在 %1 秒内没有完成</translation>
    </message>
    <message>
        <source>the worker crashed (signal %1)</source>
        <translation>工作进程崩溃（信号 %1）</translation>
    </message>
    <message>
        <source>cannot start %1: %2</source>
        <translation>无法启动 %1：%2</translation>
    </message>
    <message>
        <source>not begun</source>
        <translation>没有开始</translation>
    </message>
    <message>
        <source>ended by the user</source>
        <translation>被用户结束</translation>
    </message>
    <message>
        <source>this is not the state of a run: &quot;format&quot; is missing</source>
        <translation>这不是运行状态文件：缺少 &quot;format&quot;</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>read the unit&apos;s version when it is back</source>
        <translation>设备重新上线后请读取其版本</translation>
    </message>
    <message>
        <source>setting the clock</source>
        <translation>设置时钟</translation>
    </message>
    <message>
        <source>setting the network address</source>
        <translation>设置网络地址</translation>
    </message>
    <message>
        <source>restarting the unit</source>
        <translation>重启设备</translation>
    </message>
    <message>
        <source>writing the remark</source>
        <translation>写入备注</translation>
    </message>
    <message>
        <source>%1: there is no such folder; &quot;git init %1&quot; makes it</source>
        <translation>%1：没有这个文件夹；&quot;git init %1&quot; 可以建立</translation>
    </message>
    <message>
        <source>%1: the folder is in no git repository; &quot;git init %1&quot; makes one</source>
        <translation>%1：该文件夹不在 git 仓库中；&quot;git init %1&quot; 可以建立</translation>
    </message>
    <message>
        <source>%1: git does not know who commits; &quot;git config --global user.name&quot; and &quot;user.email&quot; set it</source>
        <translation>%1：git 不知道提交者是谁；请用 &quot;git config --global user.name&quot; 和 &quot;user.email&quot; 设置</translation>
    </message>
    <message>
        <source>%1: the folder has changes that are not committed; commit them or take them back:
%2</source>
        <translation>%1：该文件夹有未提交的更改；请提交或撤销：
%2</translation>
    </message>
    <message>
        <source>git cannot be run (%1); install it</source>
        <translation>无法运行 git（%1）；请安装</translation>
    </message>
    <message>
        <source>git %1: not finished within %2 s</source>
        <translation>git %1：未在 %2 秒内完成</translation>
    </message>
    <message>
        <source>the document is of the unit %1; %2 has %3 in the inventory</source>
        <translation>文档属于设备 %1；清单中 %2 的序列号为 %3</translation>
    </message>
    <message>
        <source>the document is of model %1; %2 is of model %3 in the inventory</source>
        <translation>文档属于型号 %1；清单中 %2 的型号为 %3</translation>
    </message>
    <message>
        <source>the program ended with exit code %1</source>
        <translation>程序以退出码 %1 结束</translation>
    </message>
    <message>
        <source>what the program printed cannot be read</source>
        <translation>无法读取程序的输出</translation>
    </message>
    <message>
        <source>%1: the unit there is of model %2; %3 was expected</source>
        <translation>%1：该处设备的型号为 %2；应为 %3</translation>
    </message>
</context>
</TS>
