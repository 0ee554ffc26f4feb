let,árok=õ,
crea,|árok|
