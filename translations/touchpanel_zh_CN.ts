<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Touch Panel</source>
        <translation>关于 Touch Panel</translation>
    </message>
    <message>
        <source>Touch Panel</source>
        <translation>Touch Panel</translation>
    </message>
    <message>
        <source>Calibrates USB touchscreens and sets how touches act.</source>
        <translation>校准 USB 触摸屏，并设置触摸的作用方式。</translation>
    </message>
    <message>
        <source>Driver version</source>
        <translation>驱动程序版本</translation>
    </message>
    <message>
        <source>Build version</source>
        <translation>程序版本</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>许可证</translation>
    </message>
    <message>
        <source>&amp;Libraries and their licences</source>
        <translation>使用的库及其许可证(&amp;L)</translation>
    </message>
    <message>
        <source>Libraries and their licences</source>
        <translation>使用的库及其许可证</translation>
    </message>
    <message>
        <source>Copy &amp;diagnostics report</source>
        <translation>复制诊断报告(&amp;D)</translation>
    </message>
    <message>
        <source>Copy versions, touchscreens, driver state and the last diagnostic lines, to send to support</source>
        <translation>复制版本、触摸屏、驱动程序状态和最近的诊断信息，以便发送给技术支持</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>The report is on the clipboard.</source>
        <translation>报告已复制到剪贴板。</translation>
    </message>
</context>
<context>
    <name>Alert</name>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Not found touch device.</source>
        <translation>未找到触摸设备。</translation>
    </message>
    <message>
        <source>To get the device parameters failed, please try again.</source>
        <translation>获取设备参数失败，请重试。</translation>
    </message>
    <message>
        <source>Unable to open device: %1.</source>
        <translation>无法打开设备：%1。</translation>
    </message>
    <message>
        <source>The configuration of this touchscreen could not be read.</source>
        <translation>无法读取此触摸屏的配置。</translation>
    </message>
    <message>
        <source>OK at the end of a calibration overwrites it, and what it held is lost. To have it read again, unplug the touchscreen and plug it in.</source>
        <translation>校准结束时按“OK”会覆盖该配置，原有内容将丢失。要重新读取，请拔出触摸屏后再插入。</translation>
    </message>
    <message>
        <source>Calibrate</source>
        <translation>校准</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>It is being opened and read.</source>
        <translation>正在打开并读取。</translation>
    </message>
    <message>
        <source>It may not have been authorised. See to that, then plug the touchscreen in again.</source>
        <translation>它可能未获授权。请予以授权，然后重新插入触摸屏。</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again. If that does not help, restart the touch driver service.</source>
        <translation>请将其拔出后重新插入。如果无效，请重新启动触摸驱动服务。</translation>
    </message>
    <message>
        <source>Add the missing setting to that file, or remove the file to start from the defaults. Then plug the touchscreen in again.</source>
        <translation>请在该文件中补上缺少的设置，或删除该文件以使用默认值。然后重新插入触摸屏。</translation>
    </message>
    <message>
        <source>You are not permitted to use touchscreens. Ask whoever looks after this machine for access.</source>
        <translation>您没有使用触摸屏的权限。请向本机管理员申请访问权限。</translation>
    </message>
    <message>
        <source>Another program is using it. Close that program, then plug the touchscreen in again.</source>
        <translation>另一个程序正在使用它。请关闭该程序，然后重新插入触摸屏。</translation>
    </message>
    <message>
        <source>It was unplugged. Plug it in again.</source>
        <translation>它已被拔出。请重新插入。</translation>
    </message>
    <message>
        <source>Unplug the touchscreen and plug it in again.</source>
        <translation>请拔出触摸屏，然后重新插入。</translation>
    </message>
    <message>
        <source>The touch driver service runs, but there is no touchscreen that it serves. Plug one in, then start this program again.</source>
        <translation>触摸驱动服务正在运行，但没有它所服务的触摸屏。请插入触摸屏，然后重新启动本程序。</translation>
    </message>
    <message>
        <source>You are not permitted to use the touch driver service. Ask whoever looks after this machine for access.</source>
        <translation>您没有使用触摸驱动服务的权限。请向本机管理员申请访问权限。</translation>
    </message>
    <message>
        <source>The touch driver service is of another version than this program. Install both in the same version.</source>
        <translation>触摸驱动服务与本程序的版本不同。请安装相同版本。</translation>
    </message>
    <message>
        <source>The touch driver service does not run or does not answer. Start it, then start this program again.</source>
        <translation>触摸驱动服务未运行或没有应答。请启动该服务，然后重新启动本程序。</translation>
    </message>
</context>
<context>
    <name>CalibrationScreen</name>
    <message>
        <source>Note:
1. When calibrating, to get better calibration result, the user&apos;s head should keep still;
2. The calibration coordinates are detemined by the point where the finger leaves the touchscreen;
3. The bull&apos;s eye is only for reference, it&apos;s not neccessarily the optimal calibration point, the user should
     aim the bull&apos;s eye the first calibration, if the result is not satisfying, the user can recalibrate and
     deliberately move slightly apart from the bull&apos;s eye.
</source>
        <translation>注意：
1. 校准时请保持头部不动，以获得更好的校准效果；
2. 校准坐标以手指离开触摸屏时的位置为准；
3. 靶心仅供参考，不一定是最佳校准点。首次校准时请对准靶心，
     如果对结果不满意，可以重新校准，
     并有意稍微偏离靶心。
</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>ReCalibrate</source>
        <translation>重新校准</translation>
    </message>
    <message>
        <source>Target %1 of %2</source>
        <translation>目标 %1 / %2</translation>
    </message>
    <message>
        <source>Once more: target %1 of %2</source>
        <translation>再次触摸：目标 %1 / %2</translation>
    </message>
    <message>
        <source>Ends by itself in %1 s</source>
        <translation>%1 秒后自动结束</translation>
    </message>
    <message>
        <source>The touches fit each other.</source>
        <translation>各次触摸相互吻合。</translation>
    </message>
    <message>
        <source>Error of the touches: mean %1 px, largest %2 px</source>
        <translation>触摸误差：平均 %1 px，最大 %2 px</translation>
    </message>
    <message>
        <source>Error of the touches: mean %1 px (%3 mm), largest %2 px (%4 mm)</source>
        <translation>触摸误差：平均 %1 px（%3 mm），最大 %2 px（%4 mm）</translation>
    </message>
    <message>
        <source>Drag a rectangle from its upper left to its lower right corner.</source>
        <translation>请从左上角向右下角拖出一个矩形。</translation>
    </message>
    <message>
        <source>The targets will stand in a box of that size at the lower left of the screen.</source>
        <translation>目标将显示在屏幕左下角同样大小的区域内。</translation>
    </message>
    <message>
        <source>The touch with a ring does not fit the others.</source>
        <translation>带圆环的触摸与其他触摸不吻合。</translation>
    </message>
    <message>
        <source>Touch the ring to take this touch again.</source>
        <translation>触摸圆环可重新采集该点。</translation>
    </message>
    <message>
        <source>The touches with a ring do not fit the others.</source>
        <translation>带圆环的触摸与其他触摸不吻合。</translation>
    </message>
    <message>
        <source>Touch a ring to take that touch again.</source>
        <translation>触摸某个圆环可重新采集该点。</translation>
    </message>
    <message>
        <source>These touches do not fit together.</source>
        <translation>这些触摸彼此不吻合。</translation>
    </message>
    <message>
        <source>These touches give no calibration; nothing has changed.</source>
        <translation>无法根据这些触摸得出校准，一切保持原状。</translation>
    </message>
    <message>
        <source>This calibration folds the screen: different places act as the same one.</source>
        <translation>此校准会使屏幕折叠：不同位置会被当作同一位置。</translation>
    </message>
    <message>
        <source>Touch ReCalibrate to take all touches again.</source>
        <translation>请触摸“重新校准”重新采集全部触摸。</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>校准</translation>
    </message>
    <message>
        <source>Touch this screen.</source>
        <translation>请触摸此屏幕。</translation>
    </message>
    <message>
        <source>Escape goes back.</source>
        <translation>按 Esc 返回。</translation>
    </message>
</context>
<context>
    <name>Controls</name>
    <message>
        <source>Disable Touch</source>
        <translation>禁用触摸</translation>
    </message>
    <message>
        <source>Enable Touch</source>
        <translation>启用触摸</translation>
    </message>
</context>
<context>
    <name>DeviceFacts</name>
    <message>
        <source>Infrared touchscreen</source>
        <translation>红外触摸屏</translation>
    </message>
    <message>
        <source>Optical touchscreen</source>
        <translation>光学触摸屏</translation>
    </message>
    <message>
        <source>Touchscreen whose calibration is kept in a file</source>
        <translation>校准保存在文件中的触摸屏</translation>
    </message>
    <message>
        <source>Touchscreen</source>
        <translation>触摸屏</translation>
    </message>
    <message>
        <source>mean error %1 mm, largest %2 mm</source>
        <translation>平均误差 %1 毫米，最大 %2 毫米</translation>
    </message>
    <message>
        <source>mean error %1 pixels, largest %2 pixels</source>
        <translation>平均误差 %1 像素，最大 %2 像素</translation>
    </message>
    <message>
        <source>None; touches land where the touchscreen says.</source>
        <translation>无；触摸落在触摸屏报告的位置。</translation>
    </message>
    <message>
        <source>There is one; when it was made is not known here.</source>
        <translation>已校准；此处不知道校准时间。</translation>
    </message>
    <message numerus="yes">
        <source>%n target(s)</source>
        <translation>
            <numerusform>%n 个目标点</numerusform>
        </translation>
    </message>
    <message>
        <source>click on touch</source>
        <translation>触摸时单击</translation>
    </message>
    <message>
        <source>click on release</source>
        <translation>松开时单击</translation>
    </message>
    <message>
        <source>drag</source>
        <translation>拖动</translation>
    </message>
    <message>
        <source>multi-touch</source>
        <translation>多点触摸</translation>
    </message>
    <message>
        <source>touch mode %1</source>
        <translation>触摸模式 %1</translation>
    </message>
    <message>
        <source>Not known: the touch driver service does not answer.</source>
        <translation>未知：触摸驱动服务没有应答。</translation>
    </message>
    <message>
        <source>None: the touch driver service does not serve this touchscreen.</source>
        <translation>无：触摸驱动服务不为此触摸屏服务。</translation>
    </message>
    <message>
        <source>Not known: the touch driver service does not tell them.</source>
        <translation>未知：触摸驱动服务未提供。</translation>
    </message>
    <message>
        <source>Touch is on</source>
        <translation>触摸已启用</translation>
    </message>
    <message>
        <source>Touch is off</source>
        <translation>触摸已禁用</translation>
    </message>
    <message>
        <source>right click after %1 ms</source>
        <translation>%1 毫秒后右键单击</translation>
    </message>
    <message>
        <source>click range %1</source>
        <translation>单击范围 %1</translation>
    </message>
    <message>
        <source>smoothing %1</source>
        <translation>平滑 %1</translation>
    </message>
    <message>
        <source>rest after %1 ms</source>
        <translation>%1 毫秒后视为静止</translation>
    </message>
    <message>
        <source>Try out</source>
        <translation>触摸测试</translation>
    </message>
    <message>
        <source>See on the whole screen where touches land (F11)</source>
        <translation>在整个屏幕上查看触摸落点 (F11)</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>校准</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>屏幕</translation>
    </message>
    <message>
        <source>In force</source>
        <translation>当前设置</translation>
    </message>
    <message>
        <source>firmware %1</source>
        <translation>固件 %1</translation>
    </message>
    <message>
        <source>Main screen</source>
        <translation>主屏幕</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>屏幕 %1</translation>
    </message>
</context>
<context>
    <name>DeviceTable</name>
    <message>
        <source>Serial number</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Calibrated</source>
        <translation>已校准</translation>
    </message>
    <message>
        <source>Monitor</source>
        <translation>显示器</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>是</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>FaultTexts</name>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Answers every command as it should.</source>
        <translation>正常应答每条命令。</translation>
    </message>
    <message>
        <source>Ignores a command</source>
        <translation>忽略一条命令</translation>
    </message>
    <message>
        <source>Never answers one command; its reply stays the one before.</source>
        <translation>从不应答某条命令，应答仍是前一条。</translation>
    </message>
    <message>
        <source>Code of the command</source>
        <translation>命令代码</translation>
    </message>
    <message>
        <source>Echoes wrongly</source>
        <translation>回显错误</translation>
    </message>
    <message>
        <source>Answers with the code of another command.</source>
        <translation>以另一条命令的代码应答。</translation>
    </message>
    <message>
        <source>Wrong kind of reply</source>
        <translation>应答类型错误</translation>
    </message>
    <message>
        <source>Answers with a reply code of another class.</source>
        <translation>以另一类应答代码应答。</translation>
    </message>
    <message>
        <source>Answers late</source>
        <translation>应答迟缓</translation>
    </message>
    <message>
        <source>Answers each command only when asked several times.</source>
        <translation>每条命令询问多次后才应答。</translation>
    </message>
    <message>
        <source>Times it must be asked</source>
        <translation>需要询问的次数</translation>
    </message>
    <message>
        <source> times</source>
        <translation> 次</translation>
    </message>
    <message>
        <source>Dies</source>
        <translation>停止工作</translation>
    </message>
    <message>
        <source>Stops working after some packets, until it is plugged in again.</source>
        <translation>若干数据包后停止工作，直到重新插入。</translation>
    </message>
    <message>
        <source>Packets that it still answers</source>
        <translation>仍会应答的数据包数</translation>
    </message>
    <message>
        <source> packets</source>
        <translation> 个数据包</translation>
    </message>
    <message>
        <source>Refuses everything</source>
        <translation>全部拒绝</translation>
    </message>
    <message>
        <source>Refuses every request.</source>
        <translation>拒绝所有请求。</translation>
    </message>
    <message>
        <source>Garbled replies</source>
        <translation>应答出错</translation>
    </message>
    <message>
        <source>Its replies arrive with flipped bits.</source>
        <translation>应答到达时有比特翻转。</translation>
    </message>
    <message>
        <source>Short replies</source>
        <translation>应答过短</translation>
    </message>
    <message>
        <source>Only the first bytes of each reply arrive.</source>
        <translation>每条应答只有前几个字节到达。</translation>
    </message>
    <message>
        <source>Bytes that arrive</source>
        <translation>到达的字节数</translation>
    </message>
    <message>
        <source> bytes</source>
        <translation> 字节</translation>
    </message>
    <message>
        <source>Odd version</source>
        <translation>异常版本</translation>
    </message>
    <message>
        <source>Its version has a length that no rule covers.</source>
        <translation>其版本长度不符合任何规则。</translation>
    </message>
    <message>
        <source>Endless bar code</source>
        <translation>无结尾条码</translation>
    </message>
    <message>
        <source>Its bar code fills the reply without an end mark.</source>
        <translation>其条码占满应答而没有结束符。</translation>
    </message>
</context>
<context>
    <name>HistorySheet</name>
    <message>
        <source>Earlier calibrations</source>
        <translation>以前的校准</translation>
    </message>
    <message>
        <source>Where the touches landed</source>
        <translation>触摸落点</translation>
    </message>
    <message>
        <source>Nothing is kept of this touchscreen yet. From the next calibration or reset on, what it held before can be restored here.</source>
        <translation>尚未保存此触摸屏的任何记录。从下一次校准或重置开始，可在此恢复之前的内容。</translation>
    </message>
    <message>
        <source>Some of what was kept could not be read and is not shown.</source>
        <translation>部分已保存的内容无法读取，未显示。</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>恢复(&amp;R)</translation>
    </message>
    <message>
        <source>Write the selected calibration to the touchscreen and use it</source>
        <translation>将所选校准写入触摸屏并使用</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Close and change nothing</source>
        <translation>关闭且不作任何更改</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 像素</translation>
    </message>
    <message>
        <source>%1 px, %2 mm</source>
        <translation>%1 像素，%2 毫米</translation>
    </message>
    <message>
        <source>As found</source>
        <translation>初始状态</translation>
    </message>
    <message>
        <source>As found, not calibrated</source>
        <translation>初始状态，未校准</translation>
    </message>
    <message>
        <source>As it was before</source>
        <translation>更改前的状态</translation>
    </message>
    <message>
        <source>As it was before, not calibrated</source>
        <translation>更改前的状态，未校准</translation>
    </message>
    <message>
        <source>Calibrated</source>
        <translation>已校准</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>已重置</translation>
    </message>
    <message>
        <source>Restored</source>
        <translation>已恢复</translation>
    </message>
    <message>
        <source>Restored, not calibrated</source>
        <translation>已恢复，未校准</translation>
    </message>
    <message>
        <source>%1 (written only in part)</source>
        <translation>%1（仅部分写入）</translation>
    </message>
    <message>
        <source>%1 (not written)</source>
        <translation>%1（未写入）</translation>
    </message>
    <message>
        <source>%1 (not known whether written)</source>
        <translation>%1（不知是否已写入）</translation>
    </message>
    <message>
        <source>%1 – held now</source>
        <translation>%1 – 当前</translation>
    </message>
    <message>
        <source>Target %1: %2</source>
        <translation>目标 %1：%2</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>日期和时间</translation>
    </message>
    <message>
        <source>What it was</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>Targets</source>
        <translation>目标数</translation>
    </message>
    <message>
        <source>Mean error</source>
        <translation>平均误差</translation>
    </message>
    <message>
        <source>Largest error</source>
        <translation>最大误差</translation>
    </message>
    <message>
        <source>Where its touches landed is not known.</source>
        <translation>触摸落点未知。</translation>
    </message>
    <message>
        <source>Crosses are targets; dots are where their touches landed.</source>
        <translation>十字为目标，圆点为其触摸落点。</translation>
    </message>
    <message>
        <source>Crosses are targets; dots are where their touches landed, drawn %1 times as far off.</source>
        <translation>十字为目标，圆点为其触摸落点，偏差放大 %1 倍绘制。</translation>
    </message>
</context>
<context>
    <name>IntegerField</name>
    <message>
        <source>%1 to %2%3</source>
        <translation>%1 至 %2%3</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Touch Panel</source>
        <translation>Touch Panel</translation>
    </message>
    <message>
        <source>&amp;Touchscreens</source>
        <translation>触摸屏(&amp;T)</translation>
    </message>
    <message>
        <source>Touchscreens</source>
        <translation>触摸屏</translation>
    </message>
    <message>
        <source>No touchscreen found</source>
        <translation>未找到触摸屏</translation>
    </message>
    <message>
        <source>Plug a touchscreen in. It appears here after a few seconds.</source>
        <translation>请插入触摸屏，几秒后会显示在这里。</translation>
    </message>
    <message>
        <source>&amp;Calibrate</source>
        <translation>校准(&amp;C)</translation>
    </message>
    <message>
        <source>Calibrate the selected touchscreen over the whole screen</source>
        <translation>在整个屏幕上校准所选触摸屏</translation>
    </message>
    <message>
        <source>Not while the settings are open.</source>
        <translation>设置打开时不可用。</translation>
    </message>
    <message>
        <source>Calibrate re&amp;gion</source>
        <translation>区域校准(&amp;G)</translation>
    </message>
    <message>
        <source>Calibrate the selected touchscreen in a part of the screen that you draw</source>
        <translation>在您画出的屏幕区域内校准所选触摸屏</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>重置(&amp;R)</translation>
    </message>
    <message>
        <source>Discard the calibration of the selected touchscreen</source>
        <translation>放弃所选触摸屏的校准</translation>
    </message>
    <message>
        <source>The selected touchscreen holds no calibration.</source>
        <translation>所选触摸屏未校准。</translation>
    </message>
    <message>
        <source>Disable Touch</source>
        <translation>禁用触摸</translation>
    </message>
    <message>
        <source>Switch touch input off or on</source>
        <translation>关闭或打开触摸输入</translation>
    </message>
    <message>
        <source>&amp;Mapping</source>
        <translation>映射(&amp;M)</translation>
    </message>
    <message>
        <source>Choose the monitor that a touchscreen belongs to</source>
        <translation>选择触摸屏所属的显示器</translation>
    </message>
    <message>
        <source>Touchscreens cannot be assigned to monitors here.</source>
        <translation>此处不能为触摸屏指定显示器。</translation>
    </message>
    <message>
        <source>S&amp;ettings</source>
        <translation>设置(&amp;E)</translation>
    </message>
    <message>
        <source>Change how touches act</source>
        <translation>更改触摸的作用方式</translation>
    </message>
    <message>
        <source>A&amp;bout</source>
        <translation>关于(&amp;B)</translation>
    </message>
    <message>
        <source>What this program is, and a report for support</source>
        <translation>关于本程序，以及供技术支持使用的报告</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>退出(&amp;X)</translation>
    </message>
    <message>
        <source>End the program</source>
        <translation>结束程序</translation>
    </message>
    <message>
        <source>Tr&amp;y out</source>
        <translation>触摸测试(&amp;Y)</translation>
    </message>
    <message>
        <source>Surface to touch</source>
        <translation>触摸区域</translation>
    </message>
    <message>
        <source>Touches</source>
        <translation>触摸次数</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>像素</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>毫米</translation>
    </message>
    <message>
        <source>Mean error</source>
        <translation>平均误差</translation>
    </message>
    <message>
        <source>Mean error in pixels</source>
        <translation>平均误差（像素）</translation>
    </message>
    <message>
        <source>Mean error in millimetres</source>
        <translation>平均误差（毫米）</translation>
    </message>
    <message>
        <source>Largest error</source>
        <translation>最大误差</translation>
    </message>
    <message>
        <source>Largest error in pixels</source>
        <translation>最大误差（像素）</translation>
    </message>
    <message>
        <source>Largest error in millimetres</source>
        <translation>最大误差（毫米）</translation>
    </message>
    <message>
        <source>Start &amp;over</source>
        <translation>重新开始(&amp;O)</translation>
    </message>
    <message>
        <source>Forget all touches and begin with the first point</source>
        <translation>清除所有触摸，从第一个点重新开始</translation>
    </message>
    <message>
        <source>There are no touches yet.</source>
        <translation>还没有触摸。</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>打印(&amp;P)...</translation>
    </message>
    <message>
        <source>Print the touches and the result, or save them as a PDF file</source>
        <translation>打印触摸和结果，或保存为 PDF 文件</translation>
    </message>
    <message>
        <source>Driver version</source>
        <translation>驱动程序版本</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>设备(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>设置(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Touch settings...</source>
        <translation>触摸设置(&amp;T)...</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>&amp;Undo reset</source>
        <translation>撤销重置(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Write again</source>
        <translation>重新写入(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Earlier calibrations...</source>
        <translation>以前的校准(&amp;E)...</translation>
    </message>
    <message>
        <source>Try &amp;out on the whole screen</source>
        <translation>全屏试用(&amp;O)</translation>
    </message>
    <message>
        <source>Trying out changes nothing. F11 uses the whole screen.</source>
        <translation>测试不会更改任何内容。按 F11 使用整个屏幕。</translation>
    </message>
    <message>
        <source>One moment</source>
        <translation>请稍候</translation>
    </message>
    <message>
        <source>Touchscreens may not be used</source>
        <translation>不允许使用触摸屏</translation>
    </message>
    <message>
        <source>You are not permitted to use them. Log in at this machine itself, or ask its administrator for access.</source>
        <translation>您没有使用权限。请直接在本机登录，或向管理员申请权限。</translation>
    </message>
    <message>
        <source>The touch driver service does not answer</source>
        <translation>触摸驱动服务没有应答</translation>
    </message>
    <message>
        <source>Touchscreens are listed when it runs again. Whoever looks after this machine can start it with &quot;systemctl start touchdriverd&quot;.</source>
        <translation>服务恢复运行后会列出触摸屏。管理员可以用“systemctl start touchdriverd”启动它。</translation>
    </message>
    <message>
        <source>&amp;Screen...</source>
        <translation>屏幕(&amp;S)...</translation>
    </message>
    <message>
        <source>Say which touchscreen lies on which screen</source>
        <translation>指定哪个触摸屏在哪个屏幕上</translation>
    </message>
</context>
<context>
    <name>ScreenSheet</name>
    <message>
        <source>Screens</source>
        <translation>屏幕</translation>
    </message>
    <message>
        <source>Choose a screen, then touch it. Or choose a touchscreen, too, and put it there.</source>
        <translation>选择一个屏幕，然后触摸它。也可以再选择一个触摸屏，把它放到该屏幕上。</translation>
    </message>
    <message>
        <source>Touch&amp;screens</source>
        <translation>触摸屏(&amp;S)</translation>
    </message>
    <message>
        <source>Touchscreens</source>
        <translation>触摸屏</translation>
    </message>
    <message>
        <source>Touch the chosen screen to say which touchscreen lies on it</source>
        <translation>触摸所选屏幕，以指定它上面的触摸屏</translation>
    </message>
    <message>
        <source>Put the chosen touchscreen on the chosen screen</source>
        <translation>把所选触摸屏放到所选屏幕上</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>确定(&amp;O)</translation>
    </message>
    <message>
        <source>Keep the screens as they are now</source>
        <translation>保留现在的对应关系</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
    <message>
        <source>Close and put every touchscreen back on the screen that it was on</source>
        <translation>关闭，并把每个触摸屏放回原来的屏幕</translation>
    </message>
    <message>
        <source>Screen %1 is chosen.</source>
        <translation>已选择屏幕 %1。</translation>
    </message>
    <message>
        <source>Screen %1: %2</source>
        <translation>屏幕 %1：%2</translation>
    </message>
    <message>
        <source>%1: on screen %2</source>
        <translation>%1：在屏幕 %2 上</translation>
    </message>
    <message>
        <source>&amp;Touch the screen that shows %1</source>
        <translation>触摸显示 %1 的屏幕(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Put it on screen %1</source>
        <translation>放到屏幕 %1 上(&amp;P)</translation>
    </message>
</context>
<context>
    <name>SettingsSheet</name>
    <message>
        <source>Touch settings</source>
        <translation>触摸设置</translation>
    </message>
    <message>
        <source>&amp;Touch</source>
        <translation>触摸(&amp;T)</translation>
    </message>
    <message>
        <source>Touch mode</source>
        <translation>触摸模式</translation>
    </message>
    <message>
        <source>Click on to&amp;uch</source>
        <translation>触摸时单击(&amp;U)</translation>
    </message>
    <message>
        <source>The click happens the moment the finger lands.</source>
        <translation>手指一触到屏幕即单击。</translation>
    </message>
    <message>
        <source>Click on re&amp;lease</source>
        <translation>松开时单击(&amp;L)</translation>
    </message>
    <message>
        <source>The click happens when the finger is lifted, so it can still be moved.</source>
        <translation>手指抬起时单击，此前仍可移动位置。</translation>
    </message>
    <message>
        <source>Drag and right-click by &amp;press and hold</source>
        <translation>拖动，长按为右键单击(&amp;P)</translation>
    </message>
    <message>
        <source>The finger drags like a held mouse button. Holding it still gives a right click.</source>
        <translation>手指如同按住的鼠标按键拖动，按住不动则为右键单击。</translation>
    </message>
    <message>
        <source>&amp;Multi-touch</source>
        <translation>多点触摸(&amp;M)</translation>
    </message>
    <message>
        <source>All fingers go to programs that understand gestures.</source>
        <translation>所有手指都传给支持手势的程序。</translation>
    </message>
    <message>
        <source>Click ran&amp;ge</source>
        <translation>单击范围(&amp;G)</translation>
    </message>
    <message>
        <source> units</source>
        <translation> 单位</translation>
    </message>
    <message>
        <source>Smoot&amp;hing</source>
        <translation>平滑(&amp;H)</translation>
    </message>
    <message>
        <source>Only optical touchscreens have this.</source>
        <translation>仅光学触摸屏支持。</translation>
    </message>
    <message>
        <source>The click range holds a shaky tap in place; 1 unit is 1/1024 of the screen. Smoothing steadies a moving finger; 0 is off.</source>
        <translation>单击范围使抖动的点击保持不动；1 单位为屏幕的 1/1024。平滑使移动的手指更稳定；0 为关闭。</translation>
    </message>
    <message>
        <source>&amp;Right click</source>
        <translation>右键单击(&amp;R)</translation>
    </message>
    <message>
        <source>Press and hold gives a right clic&amp;k</source>
        <translation>长按为右键单击(&amp;K)</translation>
    </message>
    <message>
        <source>Available in the touch mode &quot;Drag and right-click by press and hold&quot;.</source>
        <translation>仅在触摸模式“拖动，长按为右键单击”下可用。</translation>
    </message>
    <message>
        <source>&amp;Hold time</source>
        <translation>按住时间(&amp;H)</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> 毫秒</translation>
    </message>
    <message>
        <source>Available in the touch mode &quot;Drag and right-click by press and hold&quot;, with the right click switched on.</source>
        <translation>仅在触摸模式“拖动，长按为右键单击”下且启用右键单击时可用。</translation>
    </message>
    <message>
        <source>Allowed &amp;movement</source>
        <translation>允许的移动(&amp;M)</translation>
    </message>
    <message>
        <source>The finger must rest for the hold time and move no further than the allowed movement; 1 unit is 1/1024 of the screen. Only in the touch mode &quot;Drag and right-click by press and hold&quot;.</source>
        <translation>手指须在按住时间内静止，移动不得超过允许的移动；1 单位为屏幕的 1/1024。仅用于触摸模式“拖动，长按为右键单击”。</translation>
    </message>
    <message>
        <source>&amp;Double click</source>
        <translation>双击(&amp;D)</translation>
    </message>
    <message>
        <source>Dou&amp;ble click</source>
        <translation>双击(&amp;B)</translation>
    </message>
    <message>
        <source>Double click is always available.</source>
        <translation>双击始终可用。</translation>
    </message>
    <message>
        <source>&amp;Longest time between taps</source>
        <translation>两次点击的最长间隔(&amp;L)</translation>
    </message>
    <message>
        <source>Lar&amp;gest distance between taps</source>
        <translation>两次点击的最大距离(&amp;G)</translation>
    </message>
    <message>
        <source>Two taps within this time and distance count as a double click, for the mouse as well; 1 unit is 1/1024 of the screen.</source>
        <translation>在此时间和距离内的两次点击视为双击，鼠标也是如此；1 单位为屏幕的 1/1024。</translation>
    </message>
    <message>
        <source>&amp;Sensitivity</source>
        <translation>灵敏度(&amp;S)</translation>
    </message>
    <message>
        <source>Hold a rest&amp;ing finger still</source>
        <translation>稳定静止的手指(&amp;I)</translation>
    </message>
    <message>
        <source>Time &amp;until a finger rests</source>
        <translation>手指静止所需时间(&amp;U)</translation>
    </message>
    <message>
        <source>Only optical touchscreens have this, while it is switched on.</source>
        <translation>仅光学触摸屏在启用此项时支持。</translation>
    </message>
    <message>
        <source>A finger that stays this long within the allowed movement rests: it is held there until it leaves that place; 1 unit is 1/1024 of the screen. Optical touchscreens only.</source>
        <translation>手指在允许的移动范围内停留达到此时间即视为静止，并保持在该处直到离开；1 单位为屏幕的 1/1024。仅限光学触摸屏。</translation>
    </message>
    <message>
        <source>&amp;Calibration</source>
        <translation>校准(&amp;C)</translation>
    </message>
    <message>
        <source>Number of targets</source>
        <translation>目标点数量</translation>
    </message>
    <message>
        <source>&amp;4 targets, quick: for offset, size and tilt</source>
        <translation>&amp;4 点，快速：用于偏移、缩放和倾斜</translation>
    </message>
    <message>
        <source>&amp;25 targets, thorough: for distorted touchscreens too</source>
        <translation>&amp;25 点，精细：也适用于有畸变的触摸屏</translation>
    </message>
    <message>
        <source>Kind of calibration</source>
        <translation>校准类型</translation>
    </message>
    <message>
        <source>The kind is chosen by the command: &quot;Calibrate&quot; or &quot;Calibrate region&quot;.</source>
        <translation>校准类型由命令决定：“校准”或“区域校准”。</translation>
    </message>
    <message>
        <source>&amp;Whole screen</source>
        <translation>整个屏幕(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Part of the screen</source>
        <translation>部分屏幕(&amp;P)</translation>
    </message>
    <message>
        <source>The next calibration uses this number of targets. The kind is chosen by the command: &quot;Calibrate&quot; or &quot;Calibrate region&quot;.</source>
        <translation>下次校准使用此数量的目标点。校准类型由命令决定：“校准”或“区域校准”。</translation>
    </message>
    <message>
        <source>Restart d&amp;evice</source>
        <translation>重启设备(&amp;E)</translation>
    </message>
    <message>
        <source>To restart a touchscreen, unplug it and plug it in again.</source>
        <translation>要重启触摸屏，请拔下后重新插入。</translation>
    </message>
    <message>
        <source>De&amp;fault</source>
        <translation>默认值(&amp;F)</translation>
    </message>
    <message>
        <source>Put the default values into all controls</source>
        <translation>将所有项恢复为默认值</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>应用(&amp;A)</translation>
    </message>
    <message>
        <source>Use these settings and keep the window open</source>
        <translation>使用这些设置并保持窗口打开</translation>
    </message>
    <message>
        <source>Nothing has been changed.</source>
        <translation>没有更改。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Use these settings for all touchscreens</source>
        <translation>将这些设置用于所有触摸屏</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Close without using what was changed since the last Apply</source>
        <translation>关闭，不使用上次应用之后的更改</translation>
    </message>
</context>
<context>
    <name>SimulatedTouchscreen</name>
    <message>
        <source>Infrared</source>
        <translation>红外</translation>
    </message>
    <message>
        <source>Optical</source>
        <translation>光学</translation>
    </message>
    <message>
        <source>Configuration only</source>
        <translation>仅配置</translation>
    </message>
</context>
<context>
    <name>SimulatorWindow</name>
    <message>
        <source>Simulated touchscreens</source>
        <translation>模拟触摸屏</translation>
    </message>
    <message>
        <source>Touchscreens</source>
        <translation>触摸屏</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>鼠标</translation>
    </message>
    <message>
        <source>The mouse is:</source>
        <translation>鼠标用作：</translation>
    </message>
    <message>
        <source>During a calibration it is always a finger on the touchscreen that is being calibrated, and in this window it is always a mouse.</source>
        <translation>校准期间，它始终是正在校准的触摸屏上的手指；在此窗口中，它始终是鼠标。</translation>
    </message>
    <message>
        <source>Last touch</source>
        <translation>上次触摸</translation>
    </message>
    <message>
        <source>Touchscreen:</source>
        <translation>触摸屏：</translation>
    </message>
    <message>
        <source>Touched pixel:</source>
        <translation>触摸的像素：</translation>
    </message>
    <message>
        <source>Raw point:</source>
        <translation>原始点：</translation>
    </message>
    <message>
        <source>Calibrated point:</source>
        <translation>校准后的点：</translation>
    </message>
    <message>
        <source>Error before calibration:</source>
        <translation>校准前误差：</translation>
    </message>
    <message>
        <source>Error after calibration:</source>
        <translation>校准后误差：</translation>
    </message>
</context>
<context>
    <name>StartUpWindow</name>
    <message>
        <source>Touch Panel</source>
        <translation>Touch Panel</translation>
    </message>
    <message>
        <source>Looking for touchscreens...</source>
        <translation>正在查找触摸屏...</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>No touchscreen is selected.</source>
        <translation>未选择触摸屏。</translation>
    </message>
    <message>
        <source>%1 was connected.</source>
        <translation>%1 已连接。</translation>
    </message>
    <message>
        <source>A touchscreen was unplugged.</source>
        <translation>一个触摸屏已拔下。</translation>
    </message>
    <message>
        <source>Calibration of %1 started.</source>
        <translation>%1 的校准已开始。</translation>
    </message>
    <message>
        <source>Region calibration of %1 started.</source>
        <translation>%1 的区域校准已开始。</translation>
    </message>
    <message>
        <source>The calibration of %1 ended; nothing was written to the touchscreen.</source>
        <translation>%1 的校准已结束，未写入触摸屏。</translation>
    </message>
    <message>
        <source>Touch was enabled on %1.</source>
        <translation>已在 %1 上启用触摸。</translation>
    </message>
    <message>
        <source>Touch was disabled on %1.</source>
        <translation>已在 %1 上禁用触摸。</translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s) and saved.</source>
        <translation>
            <numerusform>设置已发送到 %n 个触摸屏并已保存。</numerusform>
        </translation>
    </message>
    <message>
        <source>Settings were closed without applying changes.</source>
        <translation>设置已关闭，未应用更改。</translation>
    </message>
    <message>
        <source>Touchscreens have changed; the settings shown are those of %1.</source>
        <translation>触摸屏已变化；现在显示的是 %1 的设置。</translation>
    </message>
    <message>
        <source>touchscreens of its kind keep no calibration</source>
        <translation>此类触摸屏不保存校准</translation>
    </message>
    <message>
        <source>its configuration was not confirmed</source>
        <translation>其配置未得到确认</translation>
    </message>
    <message>
        <source>the horizontal calibration was not confirmed</source>
        <translation>水平校准未得到确认</translation>
    </message>
    <message>
        <source>the vertical calibration was not confirmed</source>
        <translation>垂直校准未得到确认</translation>
    </message>
    <message>
        <source>horizontal and vertical calibration were not confirmed</source>
        <translation>水平和垂直校准未得到确认</translation>
    </message>
    <message>
        <source>configuration and horizontal calibration were not confirmed</source>
        <translation>配置和水平校准未得到确认</translation>
    </message>
    <message>
        <source>configuration and vertical calibration were not confirmed</source>
        <translation>配置和垂直校准未得到确认</translation>
    </message>
    <message>
        <source>none of its blocks was confirmed</source>
        <translation>没有任何数据块得到确认</translation>
    </message>
    <message>
        <source>it was unplugged during the write</source>
        <translation>写入过程中设备被拔出</translation>
    </message>
    <message>
        <source>it did not go back to its work mode</source>
        <translation>它没有返回工作模式</translation>
    </message>
    <message>
        <source>it is not plugged in any more</source>
        <translation>它已不再连接</translation>
    </message>
    <message>
        <source>you are not permitted to use it</source>
        <translation>您没有使用它的权限</translation>
    </message>
    <message>
        <source>another program is using it</source>
        <translation>另一个程序正在使用它</translation>
    </message>
    <message>
        <source>it does not answer</source>
        <translation>它没有应答</translation>
    </message>
    <message>
        <source>the touch driver service has no such touchscreen any more</source>
        <translation>触摸驱动服务中已没有此触摸屏</translation>
    </message>
    <message>
        <source>the touch driver service refused it</source>
        <translation>触摸驱动服务拒绝了请求</translation>
    </message>
    <message>
        <source>the touch driver service does not answer</source>
        <translation>触摸驱动服务没有应答</translation>
    </message>
    <message>
        <source>the touch driver service failed</source>
        <translation>触摸驱动服务出错</translation>
    </message>
    <message>
        <source>you are not permitted to write the file</source>
        <translation>您没有写入该文件的权限</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>磁盘已满</translation>
    </message>
    <message>
        <source>the folder of the file is missing</source>
        <translation>文件所在的文件夹不存在</translation>
    </message>
    <message>
        <source>the file cannot be written</source>
        <translation>无法写入该文件</translation>
    </message>
    <message>
        <source>What was to be written to %1 is written now.</source>
        <translation>要写入 %1 的内容现已写入。</translation>
    </message>
    <message>
        <source>%1 could not be written this time either: %2.</source>
        <translation>这次仍未能写入 %1：%2。</translation>
    </message>
    <message>
        <source>Only part was written to %1: %2.</source>
        <translation>只有一部分写入了 %1：%2。</translation>
    </message>
    <message>
        <source>Whether %1 is written now is not known: %2.</source>
        <translation>%1 现在是否已写入尚不清楚：%2。</translation>
    </message>
    <message>
        <source>The new calibration of %1 is written and in use.</source>
        <translation>%1 的新校准已写入并生效。</translation>
    </message>
    <message>
        <source>The new calibration of %1 is in use, but was not written: %2.</source>
        <translation>%1 的新校准已生效，但未写入：%2。</translation>
    </message>
    <message>
        <source>The new calibration of %1 is in use, but was written only in part: %2.</source>
        <translation>%1 的新校准已生效，但只写入了一部分：%2。</translation>
    </message>
    <message>
        <source>The new calibration of %1 is in use, but whether it was written is not known: %2.</source>
        <translation>%1 的新校准已生效，但是否已写入尚不清楚：%2。</translation>
    </message>
    <message>
        <source>The new calibration of %1 is written, but not confirmed to be in use: %2.</source>
        <translation>%1 的新校准已写入，但未确认生效：%2。</translation>
    </message>
    <message>
        <source>The new calibration of %1 is not confirmed to be in use, and was not written: %2.</source>
        <translation>%1 的新校准未确认生效，也未写入：%2。</translation>
    </message>
    <message>
        <source>The new calibration of %1 is not confirmed to be in use, and was written only in part: %2.</source>
        <translation>%1 的新校准未确认生效，且只写入了一部分：%2。</translation>
    </message>
    <message>
        <source>The new calibration of %1 is not confirmed to be in use, and whether it was written is not known: %2.</source>
        <translation>%1 的新校准未确认生效，是否已写入也不清楚：%2。</translation>
    </message>
    <message>
        <source>%1 has no calibration any more; that is written and in force.</source>
        <translation>%1 已没有校准；此更改已写入并生效。</translation>
    </message>
    <message>
        <source>The reset of %1 is in force, but was not written: %2.</source>
        <translation>%1 的重置已生效，但未写入：%2。</translation>
    </message>
    <message>
        <source>The reset of %1 is in force, but was written only in part: %2.</source>
        <translation>%1 的重置已生效，但只写入了一部分：%2。</translation>
    </message>
    <message>
        <source>The reset of %1 is in force, but whether it was written is not known: %2.</source>
        <translation>%1 的重置已生效，但是否已写入尚不清楚：%2。</translation>
    </message>
    <message>
        <source>The reset of %1 is written, but not confirmed to be in force: %2.</source>
        <translation>%1 的重置已写入，但未确认生效：%2。</translation>
    </message>
    <message>
        <source>The reset of %1 is not confirmed to be in force, and was not written: %2.</source>
        <translation>%1 的重置未确认生效，也未写入：%2。</translation>
    </message>
    <message>
        <source>The reset of %1 is not confirmed to be in force, and was written only in part: %2.</source>
        <translation>%1 的重置未确认生效，且只写入了一部分：%2。</translation>
    </message>
    <message>
        <source>The reset of %1 is not confirmed to be in force, and whether it was written is not known: %2.</source>
        <translation>%1 的重置未确认生效，是否已写入也不清楚：%2。</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is written and in use again.</source>
        <translation>%1 的早期校准已写入并重新生效。</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is in use, but was not written: %2.</source>
        <translation>%1 的早期校准已生效，但未写入：%2。</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is in use, but was written only in part: %2.</source>
        <translation>%1 的早期校准已生效，但只写入了一部分：%2。</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is in use, but whether it was written is not known: %2.</source>
        <translation>%1 的早期校准已生效，但是否已写入尚不清楚：%2。</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is written, but not confirmed to be in use: %2.</source>
        <translation>%1 的早期校准已写入，但未确认生效：%2。</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is not confirmed to be in use, and was not written: %2.</source>
        <translation>%1 的早期校准未确认生效，也未写入：%2。</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is not confirmed to be in use, and was written only in part: %2.</source>
        <translation>%1 的早期校准未确认生效，且只写入了一部分：%2。</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is not confirmed to be in use, and whether it was written is not known: %2.</source>
        <translation>%1 的早期校准未确认生效，是否已写入也不清楚：%2。</translation>
    </message>
    <message>
        <source>no calibration fits these touches</source>
        <translation>没有校准能符合这些触摸</translation>
    </message>
    <message>
        <source>%1 cannot be calibrated now: %2.</source>
        <translation>现在无法校准 %1：%2。</translation>
    </message>
    <message>
        <source>The calibration of %1 ended; nothing was written, and what is in use is not known: %2.</source>
        <translation>%1 的校准已结束；未写入任何内容，当前生效的内容尚不清楚：%2。</translation>
    </message>
    <message>
        <source>The new calibration of %1 stays in use; nothing was written to the touchscreen.</source>
        <translation>%1 的新校准继续生效；未向触摸屏写入任何内容。</translation>
    </message>
    <message>
        <source>The calibration of %1 ended; nothing was written, but the driver did not confirm that it went back: %2.</source>
        <translation>%1 的校准已结束；未写入任何内容，但驱动程序未确认已恢复：%2。</translation>
    </message>
    <message>
        <source>The settings are saved for the next start, but %1 did not take them: %2.</source>
        <translation>设置已保存供下次启动使用，但 %1 未采用：%2。</translation>
    </message>
    <message>
        <source>The settings are not saved, and %1 did not take them: %2.</source>
        <translation>设置未保存，且 %1 未采用：%2。</translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s) and saved, but %1 did not take them: %2.</source>
        <translation>
            <numerusform>设置已发送到 %n 个触摸屏并已保存，但 %1 未采用：%2。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s), but not saved, and %1 did not take them: %2.</source>
        <translation>
            <numerusform>设置已发送到 %n 个触摸屏，但未保存，且 %1 未采用：%2。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s) and saved, but the double click was not set: %2.</source>
        <translation>
            <numerusform>设置已发送到 %n 个触摸屏并已保存，但双击未设置：%2。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s), but not saved, and the double click was not set: %2.</source>
        <translation>
            <numerusform>设置已发送到 %n 个触摸屏，但未保存，且双击未设置：%2。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s), but could not be saved for the next start: %2.</source>
        <translation>
            <numerusform>设置已发送到 %n 个触摸屏，但无法保存供下次启动使用：%2。</numerusform>
        </translation>
    </message>
    <message>
        <source>It is not confirmed that touch was enabled on %1: %2.</source>
        <translation>未能确认 %1 的触摸已启用：%2。</translation>
    </message>
    <message>
        <source>It is not confirmed that touch was disabled on %1: %2.</source>
        <translation>未能确认 %1 的触摸已停用：%2。</translation>
    </message>
    <message>
        <source>Touch was not enabled on %1: %2.</source>
        <translation>%1 的触摸未启用：%2。</translation>
    </message>
    <message>
        <source>Touch was not disabled on %1: %2.</source>
        <translation>%1 的触摸未停用：%2。</translation>
    </message>
    <message>
        <source>you are not permitted to change settings of touchscreens</source>
        <translation>您没有更改触摸屏设置的权限</translation>
    </message>
    <message>
        <source>%1 is not connected any more; nothing was restored.</source>
        <translation>%1 已不再连接；未恢复任何内容。</translation>
    </message>
    <message>
        <source>There is no reset of %1 to undo.</source>
        <translation>%1 没有可撤销的重置。</translation>
    </message>
    <message>
        <source>The new calibration of %1 is written and in use, but not kept among the earlier ones: %2.</source>
        <translation>%1 的新校准已写入并在使用，但未保存到以前的校准中：%2。</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is written and in use again, but what it replaced could not be kept: %2.</source>
        <translation>%1 以前的校准已写入并重新使用，但被替换的内容未能保存：%2。</translation>
    </message>
    <message>
        <source>%1 has no calibration any more; that is written and in force, but cannot be undone here: %2.</source>
        <translation>%1 已没有校准；此更改已写入并生效，但无法在此撤销：%2。</translation>
    </message>
    <message>
        <source>there is a file of something else in its place</source>
        <translation>该位置有其他内容的文件</translation>
    </message>
    <message>
        <source>A touchscreen was found.</source>
        <translation>发现了触摸屏。</translation>
    </message>
    <message>
        <source>%1 was connected, but its configuration could not be read.</source>
        <translation>%1 已连接，但无法读取其配置。</translation>
    </message>
    <message>
        <source>%1 was connected, but not all that it holds could be read.</source>
        <translation>%1 已连接，但未能读取其全部内容。</translation>
    </message>
    <message>
        <source>%1 was connected; the file with the settings could not be read, so it has the defaults.</source>
        <translation>%1 已连接；无法读取设置文件，因此使用默认值。</translation>
    </message>
    <message>
        <source>A touchscreen cannot be opened: %2.</source>
        <translation>无法打开触摸屏：%2。</translation>
    </message>
    <message>
        <source>The system did not make a touchscreen ready for use.</source>
        <translation>系统未使触摸屏进入可用状态。</translation>
    </message>
    <message>
        <source>A touchscreen is plugged in, but the touch driver service does not serve it.</source>
        <translation>已插入触摸屏，但触摸驱动服务未为其提供服务。</translation>
    </message>
    <message>
        <source>A touchscreen cannot be listed: %2.</source>
        <translation>无法列出触摸屏：%2。</translation>
    </message>
    <message>
        <source>A touchscreen cannot be listed: the settings file lacks %1.</source>
        <translation>无法列出触摸屏：设置文件缺少 %1。</translation>
    </message>
    <message>
        <source>A touchscreen cannot be listed: its parameters could not be read.</source>
        <translation>无法列出触摸屏：无法读取其参数。</translation>
    </message>
    <message>
        <source>%1 is on the chosen screen.</source>
        <translation>%1 现在在所选屏幕上。</translation>
    </message>
    <message>
        <source>The screen of %1 is not changed: %2.</source>
        <translation>%1 的屏幕没有更改：%2。</translation>
    </message>
    <message>
        <source>Nothing is known of the screens of this desktop.</source>
        <translation>无法获知此桌面的屏幕信息。</translation>
    </message>
</context>
<context>
    <name>TouchscreenControls</name>
    <message>
        <source>Fault:</source>
        <translation>故障：</translation>
    </message>
</context>
<context>
    <name>TryOut</name>
    <message numerus="yes">
        <source>Touch the marked point. The result comes after %n more touch(es).</source>
        <translation>
            <numerusform>请触摸标记的点。再触摸 %n 次后显示结果。</numerusform>
        </translation>
    </message>
    <message>
        <source>This is the result. More touches make it more certain.</source>
        <translation>这是测试结果。多触摸几次会更可靠。</translation>
    </message>
    <message>
        <source>Screen: %1 pixels; it does not tell its size in millimetres.</source>
        <translation>屏幕：%1 像素；未提供以毫米为单位的尺寸。</translation>
    </message>
    <message>
        <source>Screen: %1 pixels, %2 mm</source>
        <translation>屏幕：%1 像素，%2 毫米</translation>
    </message>
    <message>
        <source>Touchscreen try-out</source>
        <translation>触摸屏测试</translation>
    </message>
    <message>
        <source>Mean error: %1 pixels, %2 mm</source>
        <translation>平均误差：%1 像素，%2 毫米</translation>
    </message>
    <message>
        <source>Largest error: %1 pixels, %2 mm</source>
        <translation>最大误差：%1 像素，%2 毫米</translation>
    </message>
    <message>
        <source>Touches: %1</source>
        <translation>触摸次数：%1</translation>
    </message>
    <message numerus="yes">
        <source>%n touch(es) drifted: see the dotted paths.</source>
        <translation>
            <numerusform>%n 次触摸有滑动：见点状轨迹。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n touch(es) were slow: see the squares.</source>
        <translation>
            <numerusform>%n 次触摸时间较长：见方块。</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Escape or F11 ends the try-out. It changes nothing.</source>
        <translation>按 Esc 或 F11 结束测试。测试不会更改任何内容。</translation>
    </message>
</context>
<context>
    <name>WaitNotice</name>
    <message>
        <source>Opening a touchscreen...</source>
        <translation>正在打开触摸屏...</translation>
    </message>
    <message>
        <source>A touchscreen is getting ready...</source>
        <translation>触摸屏正在准备...</translation>
    </message>
    <message>
        <source>Waiting for the touchscreen&apos;s driver...</source>
        <translation>正在等待触摸屏驱动程序...</translation>
    </message>
    <message>
        <source>Reading the touchscreen&apos;s parameters...</source>
        <translation>正在读取触摸屏参数...</translation>
    </message>
    <message>
        <source>Writing to the touchscreen...</source>
        <translation>正在写入触摸屏...</translation>
    </message>
    <message>
        <source>A touchscreen was unplugged...</source>
        <translation>触摸屏已拔下...</translation>
    </message>
    <message numerus="yes">
        <source>The touchscreen cannot be opened yet: %2. Trying again (attempt %n of 50)...</source>
        <translation>
            <numerusform>暂时无法打开触摸屏：%2。正在重试（第 %n 次，共 50 次）...</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>touchpanel::demo::SimulatorWindow</name>
    <message>
        <source>Mouse</source>
        <translation>鼠标</translation>
    </message>
    <message>
        <source>Finger on %1</source>
        <translation>%1 上的手指</translation>
    </message>
    <message>
        <source>%L1 pixels</source>
        <translation>%L1 像素</translation>
    </message>
</context>
<context>
    <name>touchpanel::demo::TouchscreenControls</name>
    <message>
        <source>Fault of %1</source>
        <translation>%1 的故障</translation>
    </message>
    <message>
        <source>%1: plugged in</source>
        <translation>%1：已插入</translation>
    </message>
    <message>
        <source>%1: unplugged</source>
        <translation>%1：已拔下</translation>
    </message>
    <message>
        <source>Unplug</source>
        <translation>拔下</translation>
    </message>
    <message>
        <source>Plug in</source>
        <translation>插入</translation>
    </message>
    <message>
        <source>Unplug %1</source>
        <translation>拔下 %1</translation>
    </message>
    <message>
        <source>Plug in %1</source>
        <translation>插入 %1</translation>
    </message>
</context>
</TS>
