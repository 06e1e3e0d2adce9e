<?xml version="1.0" encoding="UTF-8"?>
<ExtraCost>
    <Overheight>
        <Value Name="檐高20m以内"/>
        <Value Name="檐高40m以内"/>
        <Value Name="檐高70m以内"/>
        <Value Name="檐高110m以内"/>
    </Overheight>
    <ExtraCostType>
        <Type Name="超高降效" Coefficient="子目系数"/>
        <Type Name="垂直运输" Coefficient="工程系数"/>
        <Type Name="安全文明施工" Coefficient="综合系数"/>
    </ExtraCostType>
</ExtraCost>
