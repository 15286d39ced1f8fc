' Draws a small diagram and waits until the user closes it.
' quorelscript diagram.vbs
Option Explicit
Const ServiceKey = "service", OrderKey = "order", ShopKey = "shop"
Dim diagram, box, link

Set diagram = CreateObject("QuorelDiagramWindow.Diagram")
diagram.Create
diagram.LabelFont "Segoe UI", 11
diagram.SectionFont "Segoe UI", 9
diagram.AddStandardButtons

diagram.createNode ShopKey, "<<service>>" & vbCrLf & "Shop", 0, 0, 2400, 900
diagram.createNode OrderKey, "<<message>>" & vbCrLf & "Order", 0, 0, 2400, 900
diagram.createNode ServiceKey, "<<service>>" & vbCrLf & "Warehouse", 0, 0, 2400, 900

Set box = diagram.getNode(OrderKey)
box.AddProperty "Number", "String", "Integer", True
box.AddProperty "Placed", "String", "Date", True
box.AddProperty "Remark", "String", "String", False
box.AlignToText True

diagram.CreateLink "sends", "sends", ShopKey, OrderKey
diagram.CreateLink "reads", "reads", OrderKey, ServiceKey
Set link = diagram.getLink("reads")
link.AddProperty "Retries", "String", "Integer", True
link.AlignToText True

diagram.Layout "%HIERARCHY%"
diagram.PopUp
diagram.Destroy
