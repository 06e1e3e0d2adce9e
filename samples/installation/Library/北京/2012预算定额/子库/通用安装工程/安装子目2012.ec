<?xml version="1.0" encoding="UTF-8"?>
<ExtraCost>
    <Overheight>
        <Value Name="操作高度5m以内"/>
        <Value Name="操作高度10m以内"/>
        <Value Name="操作高度20m以内"/>
    </Overheight>
    <ExtraCostType>
        <Type Name="操作高度增加" Coefficient="子目系数"/>
        <Type Name="高层建筑增加" Coefficient="工程系数"/>
        <Type Name="脚手架搭拆" Coefficient="综合系数"/>
    </ExtraCostType>
</ExtraCost>
