crea,b1
