' Configures the catalog and shows how the library answers. Run: cscript //nologo lookup.vbs DIRECTORY
Option Explicit
Dim directory, controller, brands

directory = "sample"
If WScript.Arguments.Count > 0 Then directory = WScript.Arguments(0)

Set controller = CreateObject("Keyscout.RWKeyscoutController")
controller.KeyscoutDirectory = directory
controller.KeyscoutIndexFile = "catindex.txt"
controller.CatalogNumbersDownloadFile = "catalog.txt"

Set brands = CreateObject("Keyscout.BrandList")
brands.Add "ACME"
brands.Add "BOLT"
Set controller.authorizedBrands = brands

Dim ready
On Error Resume Next
ready = controller.init
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
Else
    On Error GoTo 0
    controller.KeyscoutEnabled = True
    WScript.Echo "Directory: " & controller.KeyscoutDirectory
    WScript.Echo "Ready: " & ready
    WScript.Echo "Brands: " & controller.authorizedBrands.Count
End If
WScript.Echo "done"
