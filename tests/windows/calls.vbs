' calls.vbs DATABASE SEQUENCE: every member, with and without what may be left out.
Option Explicit
Dim failures
failures = 0

Sub Expect(what, got, wanted)
    If CStr(got) <> CStr(wanted) Then
        failures = failures + 1
        WScript.Echo what & ": " & got & " in the place of " & wanted
    End If
End Sub

Dim catalogue, connection, sequence
sequence = WScript.Arguments(1)
Set catalogue = CreateObject("Catalogador.clsCatalogador")
Expect "without a connection", CBool(catalogue.ActivarABM(1)), False
Expect "without anything", catalogue.AddNew(5, sequence, "x"), 9

Set connection = CreateObject("vemDatos.rdoConnection")
connection.Connect = "DRIVER={SQLite3};Database=" & WScript.Arguments(0) & ";Timeout=5000"
connection.EstablishConnection
Set catalogue.Coneccion = connection
catalogue.Empresa = 1
catalogue.Idioma = 1
Expect "without a key", catalogue.AddNew(5, sequence, "x"), 9
catalogue.AppKey = "VEM04"

Expect "view 0", CBool(catalogue.ActivarABM(0)), False
Expect "view 0 and a code", CBool(catalogue.ActivarABM(0, 5)), False
Expect "view 0, a code and a text", CBool(catalogue.ActivarABM(0, 5, "x")), False
Expect "view 0 and a text", CBool(catalogue.ActivarABM(0, , "x")), False
Expect "code before", catalogue.IDModificado, 0
Expect "no view", catalogue.AddNew(0, sequence, "x"), 9
Expect "no sequence", catalogue.AddNew(5, "", "x"), 9
Expect "no text", catalogue.AddNew(5, sequence, ""), 9
Expect "added", catalogue.AddNew(5, sequence, "Nuevo 'uno'"), 1
Expect "code after", CBool(catalogue.IDModificado > 0), True
Expect "there already", catalogue.AddNew(5, sequence, "Nuevo 'uno'"), 0
Expect "unknown sequence", catalogue.AddNew(5, "nada", "Nuevo dos"), 0
Dim view, name, text
view = 5
name = sequence
text = "Nuevo 'uno'"
Expect "by reference", catalogue.AddNew(view, name, text), 0

Dim rows
Set rows = connection.OpenResultset("Select Count(*) As Cuantos From genCodigoTexto", 2, 4)
Expect "rows", CBool(rows.rdoColumns("Cuantos").Value > 100), True
rows.Close

On Error Resume Next
Dim failure
catalogue.Empresa = "text"
failure = Err.Number
Err.Clear
Expect "a text for a number", CBool(failure <> 0), True
catalogue.ActivarABM
failure = Err.Number
Err.Clear
Expect "no argument", CBool(failure <> 0), True
catalogue.Coneccion = 5
failure = Err.Number
Err.Clear
Expect "a number for a connection", CBool(failure <> 0), True
connection.Execute "No Sentence"
Expect "an error of the database", Err.Number, 40002
Err.Clear
On Error GoTo 0

If failures = 0 Then WScript.Echo "all calls as expected"
WScript.Quit failures
