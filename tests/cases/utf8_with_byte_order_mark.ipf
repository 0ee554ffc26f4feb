crea,árokő
