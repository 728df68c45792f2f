' Opens the maintenance screen of a view on an ODBC database.
'
'   cscript //nologo host.vbs "DRIVER={SQLite3 ODBC Driver};Database=C:\data\demo.db" 5
Option Explicit
If WScript.Arguments.Count <> 2 Then
    WScript.Echo "host.vbs CONNECTION VIEW"
    WScript.Quit 2
End If

Dim connection, catalogue
Set connection = CreateObject("vemDatos.rdoConnection")
connection.Connect = WScript.Arguments(0)
connection.EstablishConnection

Set catalogue = CreateObject("Catalogador.clsCatalogador")
Set catalogue.Coneccion = connection
catalogue.Empresa = 1
catalogue.AppKey = "VEM04"
catalogue.Idioma = 1

' The call comes back when the screen is closed.
If catalogue.ActivarABM(CInt(WScript.Arguments(1))) Then
    WScript.Echo "Last code saved or deleted: " & catalogue.IDModificado
Else
    WScript.Echo "The view was not opened"
End If
connection.Close
