' screen.vbs DATABASE TIMES: opens the list of scripts, so many times, and tells what was saved.
Option Explicit
Dim catalogue, connection, time
Set connection = CreateObject("vemDatos.rdoConnection")
connection.Connect = "DRIVER={SQLite3};Database=" & WScript.Arguments(0) & ";Timeout=5000"
connection.EstablishConnection
Set catalogue = CreateObject("Catalogador.clsCatalogador")
Set catalogue.Coneccion = connection
catalogue.Empresa = 1
catalogue.AppKey = "VEM04"
catalogue.Idioma = 1
For time = 1 To CInt(WScript.Arguments(1))
    WScript.Echo "shown " & CBool(catalogue.ActivarABM(5)) & " code " & catalogue.IDModificado
Next
