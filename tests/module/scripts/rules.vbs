' A script host that knows the classes by name only. Exit status 0 says that every step went as written.
Option Explicit
On Error Resume Next
Dim help, rule

Sub Fail(what)
    WScript.Echo "failed: " & what
    WScript.Quit 1
End Sub

Sub MustSucceed(what)
    If Err.Number <> 0 Then Fail what & ": " & Err.Number & " " & Err.Description
End Sub

Sub MustFail(what)
    If Err.Number = 0 Then Fail what & " raised nothing"
    Err.Clear
End Sub

Set help = CreateObject("Tolvarin.prpHelpInfo")
MustSucceed "creating the help information"
help.AddHelpString 1, 26, "Depth of the hole"
MustSucceed "adding a help text"
help.AddPictureResource 1, 255, 26, 4096, 101
MustSucceed "adding a picture"
help.AddHelpStringResource -1, 0, -1, 0, 32005
MustSucceed "adding a help text in a resource"
help.AddHelpString 1
MustFail "a missing argument"
help.NoSuchMember
MustFail "an unknown member"

Set rule = CreateObject("Tolvarin.prpVisibilityInfo.1")
MustSucceed "creating the rule"
If rule Is Nothing Then Fail "no rule"
rule.IsVisible 1
MustFail "a rule about nothing"

WScript.Echo "passed"
WScript.Quit 0
