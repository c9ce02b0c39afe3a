	/* From the causes to what they lead to: utilities, feed, column, overhead. The column asks for
	   what was found overhead a tick ago. */
	ActivatSB = si;
	utilities.engine();
	feed.engine();
	column.engine();
	overhead.engine();
	ActivatSB = no;
