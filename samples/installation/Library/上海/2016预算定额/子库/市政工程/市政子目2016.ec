<?xml version="1.0" encoding="UTF-8"?>
<ExtraCost>
    <Overheight>
        <Value Name="管顶覆土3m以内"/>
        <Value Name="管顶覆土5m以内"/>
    </Overheight>
    <ExtraCostType>
        <Type Name="交叉作业" Coefficient="工程系数"/>
        <Type Name="安全文明施工" Coefficient="综合系数"/>
    </ExtraCostType>
</ExtraCost>
