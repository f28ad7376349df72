# Records this machine's management service into a file that qvsata --host reads, for machines on which
# no program may be run. Windows PowerShell 5.1, no modules; run it as an administrator:
#   powershell -ExecutionPolicy Bypass -File capture.ps1 -Output machine.json [-TimeoutSeconds 30]
# It only reads. A class that cannot be read is recorded as failing with its status. The file holds
# serial numbers and names: "qvsata capture --host machine.json --redact -o sent.json" replaces them.
param(
    [Parameter(Mandatory = $true)][string]$Output,
    [uint32]$TimeoutSeconds = 30
)
Set-StrictMode -Version 2
$ErrorActionPreference = 'Stop'
# Otherwise PowerShell 5.1 writes an array that a function returned as {"value": [...], "Count": n}.
Remove-TypeData System.Array -ErrorAction Ignore

# What the provider reads: namespace, class.
$sources = @(
    @('root\CIMv2', 'Win32_DiskDrive'),
    @('root\CIMv2', 'Win32_PhysicalMedia'),
    @('root\CIMv2', 'Win32_DiskPartition'),
    @('root\CIMv2', 'Win32_DiskDriveToDiskPartition'),
    @('root\CIMv2', 'Win32_IDEController'),
    @('root\CIMv2', 'Win32_IDEControllerDevice'),
    @('root\CIMv2', 'Win32_PnPEntity'),
    @('root\CIMv2', 'Win32_PnPDevice'),
    @('root\CIMv2', 'Win32_SystemDriver'),
    @('root\CIMv2', 'Win32_SystemDriverPNPEntity'),
    @('root\wmi', 'MSStorageDriver_FailurePredictStatus')
)
$invalidNamespace = '0x8004100E'

# Returns \\SERVER\NAMESPACE:CLASS.KEY="value" of an instance that a reference names.
function Get-ObjectPath($instance) {
    $system = $instance.CimSystemProperties
    $keys = foreach ($property in $instance.CimInstanceProperties) {
        if (([int]$property.Flags -band [int][Microsoft.Management.Infrastructure.CimFlags]::Key) -ne 0) {
            $value = ([string]$property.Value).Replace('\', '\\').Replace('"', '\"')
            '{0}="{1}"' -f $property.Name, $value
        }
    }
    '\\{0}\{1}:{2}.{3}' -f $env:COMPUTERNAME, $system.Namespace.Replace('/', '\'), $system.ClassName, ($keys -join ',')
}

# Returns a value as a recording has it: whole numbers of up to 32 bits as signed numbers, wider ones,
# dates and references as texts.
function ConvertTo-Recorded($value) {
    if ($null -eq $value -or $value -is [string] -or $value -is [bool]) { return $value }
    if ($value -is [uint32]) { return [BitConverter]::ToInt32([BitConverter]::GetBytes($value), 0) }
    if ($value -is [int64] -or $value -is [uint64]) { return [string]$value }
    if ($value -is [char]) { return [int]$value }
    if ($value -is [datetime]) { return [Management.ManagementDateTimeConverter]::ToDmtfDateTime($value) }
    if ($value -is [timespan]) { return [Management.ManagementDateTimeConverter]::ToDmtfTimeInterval($value) }
    if ($value -is [Microsoft.Management.Infrastructure.CimInstance]) { return Get-ObjectPath $value }
    if ($value -is [array]) {
        $elements = @(foreach ($element in $value) { ConvertTo-Recorded $element })
        return , $elements
    }
    return [int]$value
}

function ConvertTo-Row($instance) {
    $row = [ordered]@{}
    foreach ($property in $instance.CimInstanceProperties) {
        # A recording has no real numbers and no lists of booleans.
        if ($property.CimType -notin 'Real32', 'Real64', 'Real32Array', 'Real64Array', 'BooleanArray') {
            $row[$property.Name] = ConvertTo-Recorded $property.Value
        }
    }
    , $row
}

# Returns the status of a failed query: "0x80041003".
function Get-Status($failure) {
    if ($failure.FullyQualifiedErrorId -match '0x[0-9A-Fa-f]{8}') { return '0x' + $Matches[0].Substring(2).ToUpper() }
    '0x{0:X8}' -f $failure.Exception.HResult
}

$namespaces = [ordered]@{}
$unread = 0
foreach ($source in $sources) {
    $namespace, $class = $source
    $recorded = $null
    try {
        $rows = @(Get-CimInstance -Namespace $namespace -Query "SELECT * FROM $class" -OperationTimeoutSec $TimeoutSeconds)
        $recorded = @(foreach ($instance in $rows) { ConvertTo-Row $instance })
        Write-Host "$namespace ${class}: $($rows.Count) rows"
    } catch {
        $unread++
        $status = Get-Status $_
        Write-Warning "$namespace ${class}: $status"
        if ($status -eq $invalidNamespace) { continue }
        $recorded = @{ fails = $status }
    }
    if (-not $namespaces.Contains($namespace)) { $namespaces[$namespace] = [ordered]@{} }
    $namespaces[$namespace][$class] = $recorded
}

$network = [Net.NetworkInformation.IPGlobalProperties]::GetIPGlobalProperties()
$fullName = $network.HostName
if ($network.DomainName) { $fullName += '.' + $network.DomainName }
$version = [Environment]::OSVersion.Version
$machine = [ordered]@{
    description = 'recorded by capture.ps1'
    computer = [ordered]@{
        dnsFullyQualified = $fullName
        dnsHostname = $network.HostName
        netbios = $env:COMPUTERNAME
    }
    system = [ordered]@{
        osVersion = '{0}.{1}.{2}' -f $version.Major, $version.Minor, $version.Build
        codePage = [Text.Encoding]::Default.CodePage
    }
    namespaces = $namespaces
}
# Written beside the file and renamed: never half a file.
$file = $ExecutionContext.SessionState.Path.GetUnresolvedProviderPathFromPSPath($Output)
[IO.File]::WriteAllText("$file.part", (ConvertTo-Json $machine -Depth 8 -Compress), (New-Object Text.UTF8Encoding $false))
Move-Item -LiteralPath "$file.part" -Destination $file -Force
Write-Host "${Output}: $($sources.Count - $unread) classes, $unread not readable"
if ($unread -gt 0) { exit 3 }
