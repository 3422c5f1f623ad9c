' Properties and methods as a script sees them. Ends with "done" when it came to its end.
Dim c, k
Set c = CreateObject("Keyscout.RWKeyscoutController")
Set k = CreateObject("Keyscout.keyscoutControl")

Sub Check(what, found, expected)
    If found <> expected Then WScript.Echo "WRONG " & what & ": " & found & ", not " & expected
End Sub

c.KeyscoutDirectory = "C:\data"
Check "directory", c.KeyscoutDirectory, "C:\data\"
c.KeyscoutDirectory = ""
Check "empty directory", c.KeyscoutDirectory, "\"
c.isInitialized = True
Check "KeyscoutInitialized", c.KeyscoutInitialized, True
c.isInitialized = False
Check "resetLastTableNumber", c.resetLastTableNumber, True
Check "initialize", IsEmpty(c.initialize), True
k.text = "AB-100"
Check "text", k.text, "AB-100"
k.selStart = 2
k.selLength = 50
Check "selStart", k.selStart, 2
Check "selLength", k.selLength, 4
k.BackColor = "255"
Check "BackColor", k.BackColor, 255
Check "BackColor's type", VarType(k.BackColor), 3
k.FontBold = True
Check "FontBold", k.FontBold, True
k.TheToolTipText = "Catalog number"
Check "TheToolTipText", k.TheToolTipText, "Catalog number"
k.Locked = True
Check "Locked", k.Locked, True
k.Enabled = False
Check "Enabled", k.Enabled, False
k.brand = "ACME"
Check "brand", k.brand, "ACME"
Check "isListShowing", k.isListShowing, False
k.hideList
k.lockKeyscout
Check "KeyscoutLocked", c.KeyscoutLocked, True
c.KeyscoutLocked = False
Dim list, item, names
Set list = CreateObject("Keyscout.BrandList")
list.Add "bolt"
list.Add "ACME", "a text"
Check "list.Count", list.Count, 2
Check "list.Item by brand", list.Item("BOLT").Brand, "bolt"
Check "list.Item by number", list.Item(2), "a text"
For Each item In list
    names = names & TypeName(item) & " "
Next
Check "For Each", names, "_BrandItem String "
k.setAuthorizedBrands list
Check "authorizedBrands", c.authorizedBrands.Count, 2
list.Remove "acme"
Check "list.Remove", c.authorizedBrands.Count, 1
k.setAuthorizedBrands Nothing
Check "no authorizedBrands", c.authorizedBrands Is Nothing, True
On Error Resume Next
k.doit
Check "doit without a list", Err.Number, 91
Err.Clear
k.selStart = -1
Check "selStart -1", Err.Number, 380
Err.Clear
k.ForeColor = "red"
Check "ForeColor red", Err.Number, 13
Err.Clear
c.KeyscoutDirectory = "C:\windows"
c.KeyscoutIndexFile = "missing.txt"
c.needToUpdate 7
Check "needToUpdate", Err.Number, 53
Err.Clear
k.isListShowing = True
Check "isListShowing is read only", Err.Number <> 0, True
WScript.Echo "done"
