	if (hora[0] == '\0')
		put_box("Waiting for the first reading of the plant");
	/* One round of supervision: the burner first, for the steam
	   rules rest on what it found. */
	ActivatSB = si;
	burner.engine();
	steam.engine();
	ActivatSB = no;
